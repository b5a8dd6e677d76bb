#include "DropImage.h"

#include "DropPayload.h"
#include "DropText.h"
#include "ImageDescription.h"
#include "ImageType.h"

#include <QMimeDatabase>
#include <QStringList>

#include <algorithm>

namespace nookle {

namespace {

/// The name of a format without its parameters.
[[nodiscard]] QString typeOf(const QString& format)
{
    return format.section(QLatin1Char(';'), 0, 0).trimmed().toLower();
}

[[nodiscard]] bool isNamedImage(const QString& format)
{
    return typeOf(format).startsWith(QLatin1String("image/"));
}

/// The preferred formats, the best one first.
[[nodiscard]] QStringList preferredTypes()
{
    return { QStringLiteral("image/png"), QStringLiteral("image/jpeg"), QStringLiteral("image/gif"),
             QStringLiteral("image/heic"), QStringLiteral("image/webp") };
}

[[nodiscard]] qsizetype rank(const QString& format)
{
    const QStringList preferred = preferredTypes();
    const qsizetype index = preferred.indexOf(typeOf(format));
    return index < 0 ? preferred.size() : index;
}

/// A browser's name for the file of an image, in UTF-16.
[[nodiscard]] QString promisedName()
{
    return QStringLiteral("application/x-moz-file-promise-dest-filename");
}

/// The name that a browser suggests for a dragged image, which may be in one of several places, or else what it says
/// about the image.
[[nodiscard]] QString suggestedName(const DropPayload& payload, const QString& format)
{
    if (const QByteArray name = payload.suggestedName(); !name.isEmpty())
        return decodeName(name);
    if (payload.formats().contains(promisedName())) {
        const QString promised = decodeText(payload.data(promisedName()), QStringLiteral("text/unicode")).trimmed();
        if (!promised.isEmpty())
            return promised;
    }
    const QString name = format.section(QStringLiteral("name="), 1).section(QLatin1Char(';'), 0, 0);
    const QString plain = QString(name).remove(QLatin1Char('"')).trimmed();
    return plain.isEmpty() ? loadImageDescription(payload) : plain;
}

/// The type that the source names, because its file name has the extension of that type. If that type is unknown, the
/// type of the bytes.
[[nodiscard]] QString knownType(const QString& named, const QString& sniffed)
{
    return QMimeDatabase().mimeTypeForName(named).preferredSuffix().isEmpty() ? sniffed : named;
}

[[nodiscard]] std::optional<DroppedImage> loadNamedImage(const DropPayload& payload)
{
    for (const QString& format : namedImageFormats(payload.formats())) {
        QByteArray bytes = payload.data(format);
        const QString named = typeOf(format);
        if (const auto type = imageType(bytes, named))
            return DroppedImage{ std::move(bytes), knownType(named, *type), suggestedName(payload, format) };
    }
    return std::nullopt;
}

[[nodiscard]] std::optional<DroppedImage> loadUnnamedImage(const DropPayload& payload)
{
    const QStringList formats = payload.formats();
    const auto format = std::find_if(formats.begin(), formats.end(), isUnnamedFormat);
    if (format == formats.end())
        return std::nullopt;
    QByteArray bytes = payload.data(*format);
    const auto type = imageType(bytes);
    if (!type)
        return std::nullopt;
    return DroppedImage{ std::move(bytes), *type, suggestedName(payload, *format) };
}

} // namespace

bool isUnnamedFormat(const QString& format)
{
    return typeOf(format) == QLatin1String("application/octet-stream");
}

bool isImageFormat(const QString& format)
{
    return isNamedImage(format) || isUnnamedFormat(format);
}

QStringList namedImageFormats(QStringList formats)
{
    formats.removeIf([](const QString& format) { return !isNamedImage(format); });
    std::stable_sort(formats.begin(), formats.end(),
                     [](const QString& left, const QString& right) { return rank(left) < rank(right); });
    return formats;
}

bool isImageNameFormat(const QString& format)
{
    return format == promisedName() || typeOf(format) == QLatin1String("text/html");
}

std::optional<DroppedImage> loadDropImage(const DropPayload& payload)
{
    auto image = loadNamedImage(payload);
    return image ? image : loadUnnamedImage(payload);
}

} // namespace nookle

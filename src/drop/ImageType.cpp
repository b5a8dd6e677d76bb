#include "ImageType.h"

#include "FileUrl.h"

#include <QFile>
#include <QMimeDatabase>
#include <QXmlStreamReader>

#include <algorithm>
#include <filesystem>

namespace nookle {

namespace {

/// In bytes. More than the recognition of any type reads.
inline constexpr qsizetype sampleSize = 1 << 16;

[[nodiscard]] bool isImage(const QMimeType& type)
{
    return type.name().startsWith(QLatin1String("image/"));
}

[[nodiscard]] QString drawingType()
{
    return QStringLiteral("image/svg+xml");
}

[[nodiscard]] bool isDrawing(const QByteArray& bytes)
{
    QXmlStreamReader reader(bytes.left(sampleSize));
    return reader.readNextStartElement() && reader.name() == QLatin1String("svg");
}

/// Other programs also recognize a type in a name that is only an extension, such as ".png".
[[nodiscard]] QList<QMimeType> typesOfName(const QString& name)
{
    const QString stem = name.startsWith(QLatin1Char('.')) ? QStringLiteral("name") : QString();
    return QMimeDatabase().mimeTypesForFileName(QString(stem + name));
}

[[nodiscard]] bool areImages(const QList<QMimeType>& types)
{
    return std::all_of(types.begin(), types.end(), isImage);
}

/// Empty for a link, a pipe and anything else that is not a regular file.
[[nodiscard]] QByteArray beginningOf(const QByteArray& path)
{
    std::error_code ignored;
    if (std::filesystem::symlink_status(path.toStdString(), ignored).type() != std::filesystem::file_type::regular)
        return {};
    QFile file(QFile::decodeName(path));
    return file.open(QIODevice::ReadOnly) ? file.read(sampleSize) : QByteArray();
}

} // namespace

std::optional<QString> imageType(const QByteArray& bytes, const QString& claimed)
{
    const QMimeType type = QMimeDatabase().mimeTypeForData(bytes);
    if (isImage(type))
        return type.name();
    return claimed == drawingType() && isDrawing(bytes) ? std::optional(drawingType()) : std::nullopt;
}

bool isImageName(const QString& name)
{
    const QList<QMimeType> types = typesOfName(name);
    return !types.isEmpty() && areImages(types);
}

bool isImageFile(const QUrl& file)
{
    const QByteArray path = filePath(file);
    const QString name = QString::fromUtf8(path.mid(path.lastIndexOf('/') + 1));
    return areImages(typesOfName(name)) && imageType(beginningOf(path), drawingType()).has_value();
}

} // namespace nookle

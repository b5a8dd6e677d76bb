#include "ImageCopy.h"

#include "DataFiles.h"
#include "FileUrl.h"
#include "ImageType.h"
#include "Log.h"
#include "PlainText.h"

#include <QCoreApplication>
#include <QMimeDatabase>

#include <filesystem>
#include <string>
#include <system_error>

namespace nookle {

namespace {

/// In bytes. File systems allow 255, and writing the copy adds a few.
inline constexpr qsizetype longestName = 240;

/// The text after the last dot, if it can be an extension: in "Mr. Smith" it is none.
[[nodiscard]] QString extensionOf(const QString& name)
{
    constexpr qsizetype longestExtension = 16;
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    const QString extension = dot > 0 ? name.mid(dot + 1) : QString();
    return extension.contains(QLatin1Char(' ')) || extension.size() > longestExtension ? QString() : extension;
}

[[nodiscard]] QString withinLimit(const QString& name)
{
    const QString extension = extensionOf(name);
    const QString ending = extension.isEmpty() ? QString() : QLatin1Char('.') + extension;
    // A first cut: each UTF-16 unit takes at least one byte.
    QString stem = name.chopped(ending.size()).left(longestName);
    while (!stem.isEmpty() && (stem + ending).toUtf8().size() > longestName)
        stem.chop(stem.back().isLowSurrogate() ? 2 : 1);
    return stem + ending;
}

/// Ensures that no program takes the image for another type of file, such as a desktop entry, because of its name.
[[nodiscard]] QString withExtension(QString name, const QString& extension)
{
    return extension.isEmpty() ? name.replace(QLatin1Char('.'), QLatin1Char('-')) : name + QLatin1Char('.') + extension;
}

[[nodiscard]] std::optional<QUrl> failed(const QString& description)
{
    logLine(QStringLiteral("could not read image: ") + description);
    return std::nullopt;
}

void removeFolder(const QByteArray& folder)
{
    std::error_code ignored;
    std::filesystem::remove_all(folder.toStdString(), ignored);
}

} // namespace

QString imageFileName(const DroppedImage& image)
{
    QString name = withoutControls(image.suggestedName.section(QChar(u'\0'), 0, 0));
    const bool namesFolder = name == QLatin1String(".") || name == QLatin1String("..");
    if (name.isEmpty() || namesFolder)
        name = QCoreApplication::translate("nookle::DroppedImage", "Image");
    // A slash would lead into another folder.
    name.replace(QLatin1Char('/'), QLatin1Char('-'));
    if (extensionOf(name).isEmpty() || !isImageName(name))
        name = withExtension(name, QMimeDatabase().mimeTypeForName(image.type).preferredSuffix());
    return withinLimit(name);
}

QByteArray imageCopyFolder(const QUuid& id)
{
    return "Nookle-" + id.toByteArray(QUuid::WithoutBraces).toUpper();
}

std::optional<QUrl> writeImageCopy(const DroppedImage& image)
{
    std::error_code error;
    const std::string temporary = std::filesystem::temp_directory_path(error);
    if (error)
        return failed(QString::fromStdString(error.message()));
    const QByteArray folder = QByteArray::fromStdString(temporary) + '/' + imageCopyFolder(QUuid::createUuid());
    QUrl copy = child(fileUrl(folder), imageFileName(image));
    auto failure = makeFolder(folder);
    if (!failure)
        failure = writeAtomically(filePath(copy), image.bytes);
    if (!failure)
        return copy;
    removeFolder(folder);
    return failed(failure->description);
}

} // namespace nookle

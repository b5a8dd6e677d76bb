#include "ItemFiles.h"

#include "DataFiles.h"
#include "FileUrl.h"
#include "UuidText.h"

#include <filesystem>
#include <system_error>

namespace nookle {

namespace {

[[nodiscard]] bool isPlainFileName(const QString& name)
{
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..")
        && !name.contains(QLatin1Char('/')) && !name.contains(QChar(u'\0'));
}

[[nodiscard]] Failure unusableName(const QString& name)
{
    return { QStringLiteral("no usable file name: \"%1\"").arg(name) };
}

} // namespace

ItemFiles::ItemFiles(const QUrl& directory)
    : m_directory(directory)
{
}

QString ItemFiles::storedName(const QUrl& source)
{
    const QByteArray path = standardizedPath(source);
    const QByteArray bytes = path.mid(path.lastIndexOf('/') + 1);
    QString name = QString::fromUtf8(bytes);
    // Not with the replacement character itself: at three bytes it could make the name too long for the file system.
    if (name.toUtf8() != bytes)
        name.replace(QChar(QChar::ReplacementCharacter), QLatin1Char('_'));
    return name;
}

QUrl ItemFiles::folder(const QUuid& id) const
{
    return child(m_directory, uuidText(id));
}

std::optional<QUrl> ItemFiles::file(const QUuid& id, const QString& name) const
{
    if (!isPlainFileName(name))
        return {};
    return child(folder(id), name);
}

std::optional<QUrl> ItemFiles::existingFile(const QUuid& id, const QString& name) const
{
    std::optional<QUrl> url = file(id, name);
    std::error_code ignored;
    if (!url || !std::filesystem::exists(filePath(*url).toStdString(), ignored))
        return {};
    return url;
}

std::optional<Failure> ItemFiles::takeOver(const QUrl& source, const QUuid& id, const QString& name) const
{
    const std::optional<QUrl> destination = file(id, name);
    if (!destination)
        return unusableName(name);
    if (std::optional<Failure> failure = makeFolder(filePath(folder(id))))
        return failure;
    return moveFile(standardizedPath(source), filePath(*destination));
}

std::optional<Failure> ItemFiles::write(const QByteArray& bytes, const QUuid& id, const QString& name) const
{
    const std::optional<QUrl> destination = file(id, name);
    if (!destination)
        return unusableName(name);
    if (std::optional<Failure> failure = makeFolder(filePath(folder(id))))
        return failure;
    return writeAtomically(filePath(*destination), bytes);
}

void ItemFiles::removeFolder(const QUuid& id) const
{
    std::error_code ignored;
    std::filesystem::remove_all(filePath(folder(id)).toStdString(), ignored);
}

} // namespace nookle

#include "ItemFiles.h"

#include "DataFiles.h"
#include "FileUrl.h"
#include "UuidText.h"

#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace nookle {

namespace {

[[nodiscard]] bool isPlainFileName(const QString& name)
{
    return !name.isEmpty() && name != QLatin1String(".") && name != QLatin1String("..")
        && !name.contains(QLatin1Char('/')) && !name.contains(QChar(u'\0'));
}

/// Of the folder itself, in seconds since 1970; none for a link and for everything else that is no folder.
[[nodiscard]] std::optional<qint64> folderTime(const std::string& path)
{
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
        return std::nullopt;
    return status.st_mtim.tv_sec;
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

QList<QUuid> ItemFiles::foldersUnchangedSince(const QDateTime& time) const
{
    QList<QUuid> ids;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(filePath(m_directory).toStdString(), ignored)) {
        const QString name = QString::fromStdString(entry.path().filename().string());
        const std::optional<QUuid> id = uuidFromText(name);
        const std::optional<qint64> changed = folderTime(entry.path().string());
        if (id && uuidText(*id) == name && changed && *changed < time.toSecsSinceEpoch())
            ids.append(*id);
    }
    return ids;
}

QList<QUrl> ItemFiles::contents(const QUuid& id) const
{
    QList<QUrl> urls;
    std::error_code ignored;
    for (const auto& entry : std::filesystem::directory_iterator(filePath(folder(id)).toStdString(), ignored))
        urls.append(fileUrl(QByteArray::fromStdString(entry.path().string())));
    return urls;
}

void ItemFiles::removeFolder(const QUuid& id) const
{
    std::error_code ignored;
    std::filesystem::remove_all(filePath(folder(id)).toStdString(), ignored);
}

} // namespace nookle

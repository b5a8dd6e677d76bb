#include "ItemFiles.h"

#include "DataFiles.h"
#include "FileUrl.h"
#include "IndexText.h"

#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

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

/// The modification time of a folder, in seconds since 1970; none for a link and anything else that is not a folder.
[[nodiscard]] std::optional<qint64> folderTime(const std::string& path)
{
    struct stat status {};
    if (::lstat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode))
        return std::nullopt;
    return status.st_mtim.tv_sec;
}

[[nodiscard]] bool isLink(const QUrl& url)
{
    struct stat status {};
    return ::lstat(filePath(url).constData(), &status) == 0 && S_ISLNK(status.st_mode);
}

[[nodiscard]] Failure unusableName(const QString& name)
{
    return translatedFailure(
        QT_TRANSLATE_NOOP("nookle::Failure", "no usable file name, or a link for a folder: \"%1\""), name);
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
    // Replaces U+FFFD by "_": with its three bytes, U+FFFD could make the name too long for the file system.
    if (name.toUtf8() != bytes)
        name.replace(QChar(QChar::ReplacementCharacter), QLatin1Char('_'));
    return name;
}

QString ItemFiles::iconName()
{
    return QStringLiteral("icon.png");
}

QUrl ItemFiles::folder(const QUuid& id) const
{
    return child(m_directory, uuidText(id));
}

bool ItemFiles::leadsElsewhere(const QUuid& id) const
{
    return isLink(m_directory) || isLink(folder(id));
}

std::optional<QUrl> ItemFiles::file(const QUuid& id, const QString& name) const
{
    if (!isPlainFileName(name) || leadsElsewhere(id))
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
    return relocateFile(standardizedPath(source), filePath(*destination));
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

QByteArray ItemFiles::read(const QUuid& id, const QString& name, qsizetype largest) const
{
    const std::optional<QUrl> url = file(id, name);
    struct stat status {};
    // Opening a pipe would wait for its other end.
    if (!url || ::lstat(filePath(*url).constData(), &status) != 0 || !S_ISREG(status.st_mode)
        || status.st_size > largest)
        return {};
    QFile source(QFile::decodeName(filePath(*url)));
    return source.open(QIODevice::ReadOnly) ? source.read(largest) : QByteArray();
}

std::optional<Failure> ItemFiles::putBack(const QUuid& id, const QString& name,
                                          const std::function<std::optional<Failure>(const QUrl&)>& putBack) const
{
    const std::optional<QUrl> destination = file(id, name);
    if (!destination)
        return unusableName(name);
    if (existingFile(id, name))
        return {};
    if (std::optional<Failure> failure = makeFolder(filePath(folder(id))))
        return failure;
    std::optional<Failure> failure = putBack(*destination);
    if (failure)
        static_cast<void>(::rmdir(filePath(folder(id)).constData()));
    return failure;
}

std::optional<QList<QUuid>> ItemFiles::folders() const
{
    const auto names = isLink(m_directory) ? std::nullopt : entriesOf(filePath(m_directory));
    if (!names)
        return {};
    QList<QUuid> ids;
    for (const QByteArray& name : *names) {
        const std::optional<QUuid> id = uuidFromText(QString::fromUtf8(name));
        if (id && uuidText(*id).toUtf8() == name)
            ids.append(*id);
    }
    return ids;
}

bool ItemFiles::isUnchangedSince(const QUuid& id, const QDateTime& time) const
{
    const std::optional<qint64> changed = folderTime(filePath(folder(id)).toStdString());
    return changed && *changed < time.toSecsSinceEpoch();
}

std::optional<QList<QUrl>> ItemFiles::contents(const QUuid& id) const
{
    const auto names = leadsElsewhere(id) ? std::nullopt : entriesOf(filePath(folder(id)));
    if (!names)
        return {};
    QList<QUrl> urls;
    for (const QByteArray& name : *names)
        urls.append(fileUrl(filePath(folder(id)) + '/' + name));
    return urls;
}

void ItemFiles::removeUnfinished(const QUuid& id, const QDateTime& unchangedSince) const
{
    if (!leadsElsewhere(id))
        nookle::removeUnfinished(filePath(folder(id)), unchangedSince);
}

void ItemFiles::removeFolder(const QUuid& id) const
{
    // If a link has replaced the folder, only the link is removed, not its target.
    std::error_code ignored;
    if (!isLink(m_directory))
        std::filesystem::remove_all(filePath(folder(id)).toStdString(), ignored);
}

void ItemFiles::trashFolder(const QUuid& id,
                            const std::function<std::optional<Failure>(const QUrl&)>& moveToTrash) const
{
    const std::optional<QList<QUrl>> files = contents(id);
    if (!files)
        return;
    // A favicon cannot be told from an image with the same name, so all files go to the Trash.
    for (const QUrl& file : *files) {
        if (moveToTrash(file))
            return;
    }
    static_cast<void>(::rmdir(filePath(folder(id)).constData()));
}

} // namespace nookle

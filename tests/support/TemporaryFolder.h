#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

namespace nookle {

/// A folder that is deleted with its contents, whatever bytes their names are made of. It lies on a volume that has a
/// Trash, which the one for temporary files may not have.
class TemporaryFolder final {
public:
    TemporaryFolder()
    {
        if (::mkdtemp(m_path.data()) == nullptr)
            qFatal("no temporary folder");
    }
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path.toStdString(), ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    [[nodiscard]] QByteArray path() const { return m_path; }

    [[nodiscard]] QByteArray path(const QByteArray& name) const
    {
        QByteArray path = m_path;
        path += '/';
        path += name;
        return path;
    }

    /// Makes the folder `name` and those above it.
    QByteArray makeFolder(const QByteArray& name) const
    {
        const QByteArray whole = path(name);
        for (qsizetype end = m_path.size(); end != -1; end = whole.indexOf('/', end + 1))
            ::mkdir(whole.left(end).constData(), 0700);
        ::mkdir(whole.constData(), 0700);
        if (::access(whole.constData(), X_OK) != 0)
            qFatal("a folder could not be made");
        return whole;
    }

    /// Makes the file `name`, whose folder must be there, or replaces what it holds.
    QByteArray makeFile(const QByteArray& name, const QByteArray& content = "content") const
    {
        const int file = ::open(path(name).constData(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
        if (file < 0 || ::write(file, content.constData(), size_t(content.size())) != content.size())
            qFatal("a file could not be made");
        ::close(file);
        return path(name);
    }

private:
    QByteArray m_path = "/var/tmp/nookle-test-XXXXXX";
};

/// Moves what is at `from` to `to`.
inline void moveFile(const QByteArray& from, const QByteArray& to)
{
    if (::rename(from.constData(), to.constData()) != 0)
        qFatal("a file could not be moved");
}

/// Deletes the file, the link or the empty folder at `path`.
inline void deleteFile(const QByteArray& path)
{
    if (::remove(path.constData()) != 0)
        qFatal("a file could not be deleted");
}

/// Makes a symbolic link at `path` that leads to `target`.
inline void makeLink(const QByteArray& target, const QByteArray& path)
{
    if (::symlink(target.constData(), path.constData()) != 0)
        qFatal("a link could not be made");
}

} // namespace nookle

#pragma once

#include "FileReferences.h"
#include "FileUrl.h"

#include <QHash>
#include <QList>
#include <QSet>

namespace nookle {

/// References to files that need not exist on disk: every file exists until a test says otherwise, and is followed
/// wherever a test moves it. The bytes name the path, so that two references to the same place are equal.
class FakeFileReferences : public FileReferences {
public:
    std::optional<QByteArray> make(const QUrl& url) override
    {
        if (filePath(url).isEmpty() || m_refused.contains(url))
            return {};
        return prefix() + filePath(url);
    }

    std::optional<ResolvedFile> resolve(const QByteArray& reference) override
    {
        if (!reference.startsWith(prefix()))
            return {};
        const QUrl made = fileUrl(reference.mid(prefix().size()));
        const QUrl present = m_moved.value(made, made);
        if (m_missing.contains(present))
            return {};
        return ResolvedFile{ present, present != made || m_stale.contains(made) };
    }

    bool isFolder(const QByteArray& reference) const override { return m_folders.contains(reference); }

    void release(const QByteArray& reference) override { released.append(reference); }

    /// From now on what is at `url` is a folder.
    void makeFolder(const QUrl& url) { m_folders.insert(prefix() + filePath(url)); }

    /// From now on no reference can be made to `url`; those that exist still resolve.
    void refuse(const QUrl& url) { m_refused.insert(url); }

    /// From now on nothing exists at `url`.
    void removeFile(const QUrl& url) { m_missing.insert(url); }

    /// References made to `from` lead to `to` from now on, and are stale.
    void moveFile(const QUrl& from, const QUrl& to) { m_moved.insert(from, to); }

    /// References made to `url` are stale from now on, although it is where it was.
    void makeStale(const QUrl& url) { m_stale.insert(url); }

    /// What was released, in order.
    QList<QByteArray> released;

private:
    [[nodiscard]] static QByteArray prefix() { return QByteArrayLiteral("reference to "); }

    QSet<QByteArray> m_folders;
    QSet<QUrl> m_refused;
    QSet<QUrl> m_missing;
    QSet<QUrl> m_stale;
    QHash<QUrl, QUrl> m_moved;
};

} // namespace nookle

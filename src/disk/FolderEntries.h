#pragma once

#include <QByteArray>

#include <dirent.h>

#include <memory>
#include <optional>

namespace nookle {

/// The entries of one folder, read one after the other as the file system has them; names are bytes.
class FolderEntries final {
public:
    enum class Links { follow, refuse };

    /// Opens the folder at `path`; null when it cannot be read. `lastComponent` says what a link in its place counts
    /// as.
    [[nodiscard]] static std::unique_ptr<FolderEntries> tryOpen(const QByteArray& path, Links lastComponent);

    /// The next entry, valid until the next call, "." and ".." left out; null at the end or when reading fails.
    [[nodiscard]] const dirent* next();

    /// Whether `entry`, just read, is a folder itself and not a link to one.
    [[nodiscard]] bool isFolder(const dirent& entry) const;

    /// The volume that the folder lies on.
    [[nodiscard]] std::optional<dev_t> device() const;

private:
    struct Close {
        void operator()(DIR* folder) const { ::closedir(folder); }
    };

    explicit FolderEntries(DIR* folder)
        : m_folder(folder)
    {
    }

    std::unique_ptr<DIR, Close> m_folder;
};

/// The path of `name` in `folder`.
[[nodiscard]] QByteArray entryPath(const QByteArray& folder, const QByteArray& name);

/// The path of the folder that holds `path`; "/" holds itself.
[[nodiscard]] QByteArray parentFolder(const QByteArray& path);

} // namespace nookle

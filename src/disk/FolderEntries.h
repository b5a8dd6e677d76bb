#pragma once

#include <QByteArray>

#include <dirent.h>

#include <memory>
#include <optional>

namespace nookle {

/// Reads the entries of one folder one by one, in the file system's order. Names are bytes.
class FolderEntries final {
public:
    enum class Links { follow, refuse };

    /// Opens the folder at `path`; null when it cannot be opened. `lastComponent` says whether `path` itself may be a
    /// link.
    [[nodiscard]] static std::unique_ptr<FolderEntries> tryOpen(const QByteArray& path, Links lastComponent);

    /// The next entry, without "." and "..". It is valid until the next call. Null at the end, or when reading fails.
    [[nodiscard]] const dirent* next();

    /// Whether `entry` is a folder, and not a link to one. `entry` must be the one that `next` returned last.
    [[nodiscard]] bool isFolder(const dirent& entry) const;

    /// The device number of the folder's volume.
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

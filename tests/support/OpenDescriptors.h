#pragma once

#include <QByteArray>

#include <filesystem>
#include <string>
#include <system_error>

namespace nookle {

/// How many descriptors of this process are open on something whose path, present or deleted, begins with `path`.
[[nodiscard]] inline int descriptorsBelow(const QByteArray& path)
{
    int count = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code ignored;
        const std::string target = std::filesystem::read_symlink(entry.path(), ignored).string();
        count += QByteArray::fromStdString(target).startsWith(path) ? 1 : 0;
    }
    return count;
}

} // namespace nookle

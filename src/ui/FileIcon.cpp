#include "FileIcon.h"

#include "FileUrl.h"

#include <QMimeDatabase>

#include <filesystem>

namespace nookle {

QIcon fileIcon(const QUrl& url)
{
    std::error_code error;
    if (std::filesystem::is_directory(filePath(url).toStdString(), error))
        return QIcon::fromTheme(QStringLiteral("folder"));
    const QMimeType type = QMimeDatabase().mimeTypeForFile(lastPathComponent(url), QMimeDatabase::MatchExtension);
    for (const QString& name : { type.iconName(), type.genericIconName() }) {
        if (QIcon icon = QIcon::fromTheme(name); !icon.isNull())
            return icon;
    }
    return QIcon::fromTheme(QStringLiteral("text-x-generic"));
}

} // namespace nookle

#include "FileIcon.h"

#include "FileUrl.h"

#include <QMimeDatabase>

namespace nookle {

QIcon fileIcon(const QUrl& url, bool isFolder)
{
    if (isFolder)
        return QIcon::fromTheme(QStringLiteral("folder"));
    const QMimeType type = QMimeDatabase().mimeTypeForFile(lastPathComponent(url), QMimeDatabase::MatchExtension);
    for (const QString& name : { type.iconName(), type.genericIconName() }) {
        if (QIcon icon = QIcon::fromTheme(name); !icon.isNull())
            return icon;
    }
    return QIcon::fromTheme(QStringLiteral("text-x-generic"));
}

} // namespace nookle

#include "FileIcon.h"

#include "FileUrl.h"
#include "ThemeDrawing.h"

#include <QHash>
#include <QMimeDatabase>
#include <QSet>

#include <utility>

namespace nookle {

namespace {

/// The icons of the theme. It caches the names that the theme lacks, because Qt searches all folders of the theme and
/// its parents at each request for such a name.
class ThemeIcons {
public:
    [[nodiscard]] QIcon icon(const QString& name)
    {
        if (QString theme = QIcon::themeName(); theme != m_theme) {
            m_theme = std::move(theme);
            m_themeOfFileTypes = themeOfFileTypes();
            m_missing.clear();
            m_repaired.clear();
        }
        if (m_missing.contains(name))
            return {};
        QIcon found = QIcon::fromTheme(name);
        if (found.isNull()) {
            m_missing.insert(name);
            return found;
        }
        auto drawing = m_repaired.find(name);
        if (drawing == m_repaired.end())
            drawing = m_repaired.insert(name, repairedDrawing(m_themeOfFileTypes, name));
        return drawing->isNull() ? found : *drawing;
    }

private:
    QString m_theme;
    QString m_themeOfFileTypes;
    QSet<QString> m_missing;
    /// Null for those that need no repair.
    QHash<QString, QIcon> m_repaired;
};

[[nodiscard]] QIcon themeIcon(const QString& name)
{
    static ThemeIcons icons;
    return icons.icon(name);
}

} // namespace

QIcon fileIcon(const QUrl& url, bool isFolder)
{
    if (isFolder)
        return themeIcon(QStringLiteral("folder"));
    const QMimeType type = QMimeDatabase().mimeTypeForFile(lastPathComponent(url), QMimeDatabase::MatchExtension);
    for (const QString& name : { type.iconName(), type.genericIconName() }) {
        if (QIcon icon = themeIcon(name); !icon.isNull())
            return icon;
    }
    return themeIcon(QStringLiteral("text-x-generic"));
}

} // namespace nookle

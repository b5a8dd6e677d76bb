#include "ThemeDrawing.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPixmap>
#include <QRegularExpression>
#include <QSettings>
#include <QStringList>

#include <optional>

namespace nookle {

namespace {

/// The path of a file of a theme; empty if the theme does not have it.
[[nodiscard]] QString fileOf(const QString& theme, const QString& name)
{
    for (const QString& folder : QIcon::themeSearchPaths()) {
        QString path = folder + QLatin1Char('/') + theme + QLatin1Char('/') + name;
        if (QFile::exists(path))
            return path;
    }
    return {};
}

[[nodiscard]] QByteArray drawingOf(const QString& theme, const QString& name)
{
    // Drawings of icons have some kilobytes.
    constexpr qint64 largest = 1024LL * 1024;
    const QString path = fileOf(theme, QStringLiteral("scalable/mimetypes/%1.svg").arg(name));
    if (path.isEmpty())
        return {};
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(largest) : QByteArray();
}

/// All themes have the icons of this one, below their own.
[[nodiscard]] QString commonTheme()
{
    return QStringLiteral("hicolor");
}

/// The drawing with all its clip paths among definitions; none if they are there already.
[[nodiscard]] std::optional<QByteArray> repaired(const QByteArray& drawing)
{
    if (!drawing.contains("<clipPath") || drawing.contains("<defs"))
        return std::nullopt;
    static const QRegularExpression clipPath(QStringLiteral("(<clipPath\\b[^>]*[^>/]>.*?</clipPath>)"),
                                             QRegularExpression::DotMatchesEverythingOption);
    return QString::fromUtf8(drawing).replace(clipPath, QStringLiteral("<defs>\\1</defs>")).toUtf8();
}

} // namespace

QString themeOfFileTypes()
{
    constexpr int mostParents = 8;
    QString theme = QIcon::themeName();
    for (int parent = 0; parent < mostParents && !theme.isEmpty() && theme != commonTheme(); ++parent) {
        const QString path = fileOf(theme, QStringLiteral("index.theme"));
        if (path.isEmpty())
            break;
        const QSettings index(path, QSettings::IniFormat);
        const QString folders = index.value(QStringLiteral("Icon Theme/Directories")).toStringList().join(u' ');
        if (folders.contains(QLatin1String("mimetypes")))
            return theme;
        theme = index.value(QStringLiteral("Icon Theme/Inherits")).toStringList().value(0).trimmed();
    }
    return QIcon::fallbackThemeName();
}

QIcon repairedDrawing(const QString& theme, const QString& name)
{
    std::optional<QByteArray> drawing = repaired(drawingOf(theme, name));
    if (!drawing)
        return {};
    // Large enough for a tile on a display of four times the usual resolution.
    constexpr QSize size(256, 256);
    QBuffer buffer(&*drawing);
    QImageReader reader(&buffer, "svg");
    reader.setScaledSize(reader.size().scaled(size, Qt::KeepAspectRatio));
    const QImage image = reader.read();
    return image.isNull() ? QIcon() : QIcon(QPixmap::fromImage(image));
}

} // namespace nookle

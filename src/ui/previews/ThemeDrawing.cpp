#include "ThemeDrawing.h"

#include <QBuffer>
#include <QFile>
#include <QImageReader>
#include <QPixmap>
#include <QRegularExpression>

#include <optional>

namespace nookle {

namespace {

[[nodiscard]] QByteArray drawingOf(const QString& name)
{
    // Drawings of icons have some kilobytes.
    constexpr qint64 largest = 1024LL * 1024;
    for (const QString& folder : QIcon::themeSearchPaths()) {
        QFile file(folder + QLatin1Char('/') + QIcon::themeName() + QStringLiteral("/scalable/mimetypes/") + name
                   + QStringLiteral(".svg"));
        if (file.open(QIODevice::ReadOnly))
            return file.read(largest);
    }
    return {};
}

/// The drawing with all its clip paths among definitions; none if they are there already.
[[nodiscard]] std::optional<QByteArray> repaired(const QByteArray& drawing)
{
    if (!drawing.contains("<clipPath") || drawing.contains("<defs"))
        return std::nullopt;
    static const QRegularExpression clipPath(QStringLiteral("<clipPath\\b[^>]*[^>/]>.*?</clipPath>"),
                                             QRegularExpression::DotMatchesEverythingOption);
    return QString::fromUtf8(drawing).replace(clipPath, QStringLiteral("<defs>\\0</defs>")).toUtf8();
}

} // namespace

QIcon repairedDrawing(const QString& name)
{
    std::optional<QByteArray> drawing = repaired(drawingOf(name));
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

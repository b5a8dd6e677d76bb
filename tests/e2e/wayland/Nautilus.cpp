#include "Nautilus.h"

#include "Waiting.h"

namespace nookle::e2e {

namespace {

/// Where the first files of a folder are: right of the side pane and below the bar.
inline constexpr QRect firstFiles(260, 90, 500, 200);
/// From the first pixel of an icon to a place that lies well inside it.
inline constexpr QPoint intoIcon(10, 30);
/// From within an icon to the file beside it.
inline constexpr int fileWidth = 110;
/// For how long a view that is drawn stays as it is, in milliseconds.
inline constexpr int rest = 300;

/// Within the first icon of a view, from that column on.
[[nodiscard]] std::optional<QPoint> findIcon(const QImage& view, int fromColumn)
{
    const auto isDrawn = [&view](const QPoint& at) {
        return view.rect().contains(at) && view.pixelColor(at) != QColor(Qt::white);
    };
    // The desktop behind the window, and a window that is not drawn yet, are no folder.
    if (view.isNull() || isDrawn({ 0, 0 }))
        return std::nullopt;
    for (int x = fromColumn; x < view.width(); ++x) {
        for (int y = 0; y < view.height(); ++y) {
            if (isDrawn({ x, y }) && isDrawn(QPoint(x, y) + intoIcon))
                return QPoint(x, y) + intoIcon;
        }
    }
    return std::nullopt;
}

} // namespace

std::unique_ptr<Nautilus> Nautilus::tryOpen(const WaylandDesktop& desktop, const QString& folder)
{
    std::unique_ptr<Nautilus> nautilus(new Nautilus);
    // With its own looks it shows where it would take a drop.
    QProcessEnvironment environment = desktop.environment();
    environment.remove(QStringLiteral("GTK_THEME"));
    nautilus->m_program = std::make_unique<Program>(QStringLiteral("nautilus"),
                                                    QStringList{ QStringLiteral("--new-window"), folder }, environment);
    constexpr int patienceForRoot = 25000;
    if (waitFor([&] { return nautilus->findIcons(desktop); }, patienceForRoot))
        return nautilus;
    qWarning("Nautilus shows no files: %s", nautilus->m_program->log().constData());
    return nullptr;
}

bool Nautilus::findIcons(const WaylandDesktop& desktop)
{
    m_view = desktop.picture(firstFiles);
    const auto first = findIcon(m_view, 0);
    const auto second = first ? findIcon(m_view, first->x() + fileWidth) : std::nullopt;
    if (!second)
        return false;
    m_first = firstFiles.topLeft() + *first;
    m_second = firstFiles.topLeft() + *second;
    return holdsFor([&] { return desktop.picture(firstFiles) == m_view; }, rest);
}

bool Nautilus::firstTakesDrop(const WaylandDesktop& desktop) const
{
    // The name below the icon, which the picture of what is dragged does not reach.
    const QRect name(m_first + QPoint(0, 60), QSize(40, 30));
    return desktop.picture(name) != m_view.copy(name.translated(-firstFiles.topLeft()));
}

} // namespace nookle::e2e

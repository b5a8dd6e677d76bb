#include "FileManager.h"

#include "Waiting.h"

namespace nookle::e2e {

namespace {

inline constexpr QRect place(30, 60, 600, 420);

// The view of the folder lies right of the side pane and below the tool bar.
inline constexpr int sidePaneWidth = 160;
inline constexpr int barHeight = 68;
/// From the first pixel of an icon to a place that lies well inside it.
inline constexpr QPoint intoIcon(10, 20);
/// For how long a view that is drawn stays as it is, in milliseconds.
inline constexpr int rest = 100;
/// The same after a selection. The file manager looks five times a second what is selected, and a drag before that
/// carries what was selected the last time.
inline constexpr int selectionRest = 400;

} // namespace

std::unique_ptr<FileManager> FileManager::tryOpen(PrivateDesktop& desktop, const QString& folder)
{
    std::unique_ptr<FileManager> manager(new FileManager);
    manager->m_program = desktop.start(QStringLiteral("pcmanfm"), { QStringLiteral("-n"), folder });
    XScreen& screen = desktop.screen();
    const auto find = [&] { return screen.window("pcmanfm"); };
    if (!waitFor([&] { return find().has_value(); })) {
        qWarning("no file manager: %s", manager->m_program->log().constData());
        return nullptr;
    }
    screen.place(*find(), place);
    std::optional<QPoint> icon;
    const bool isReady = waitFor([&] {
        const auto window = find();
        if (!window || window->frame.size() != place.size())
            return false;
        manager->m_window = *window;
        icon = findIcon(screen, window->frame);
        return icon && holdsFor([&] { return findIcon(screen, window->frame) == icon; }, rest);
    });
    if (!isReady) {
        qWarning("the file manager shows no file");
        return nullptr;
    }
    manager->m_icon = *icon;
    return manager;
}

bool FileManager::selectAll(XScreen& screen) const
{
    screen.moveTo(emptyPlace());
    screen.press();
    screen.moveTo(m_window.frame.topLeft() + QPoint(sidePaneWidth, barHeight) + QPoint(12, 12));
    screen.release();
    return waitFor([&] {
        const QImage shown = screen.picture(m_window.frame);
        return holdsFor([&] { return screen.picture(m_window.frame) == shown; }, selectionRest);
    });
}

std::optional<QPoint> FileManager::findIcon(XScreen& screen, const QRect& window)
{
    const QRect view = window.adjusted(sidePaneWidth, barHeight, -20, -40);
    const QImage picture = screen.picture(view);
    const auto isDrawn = [&picture](const QPoint& at) {
        return picture.rect().contains(at) && picture.pixelColor(at) != QColor(Qt::white);
    };
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QPoint corner(x, y);
            if (isDrawn(corner) && isDrawn(corner + intoIcon))
                return view.topLeft() + corner + intoIcon;
        }
    }
    return std::nullopt;
}

} // namespace nookle::e2e

#include "FileManager.h"

#include "Waiting.h"

namespace nookle::e2e {

namespace {

inline constexpr QRect place(30, 60, 600, 420);

// The view of the folder lies right of the side pane and below the tool bar.
inline constexpr int sidePaneWidth = 160;
inline constexpr int barHeight = 68;
inline constexpr int iconSize = 48;

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
        const auto previous = std::exchange(icon, findIcon(screen, window->frame));
        return icon && icon == previous;
    });
    if (!isReady) {
        qWarning("the file manager shows no file");
        return nullptr;
    }
    manager->m_icon = *icon;
    return manager;
}

void FileManager::selectAll(XScreen& screen) const
{
    screen.moveTo(emptyPlace());
    screen.press();
    screen.moveTo(m_window.frame.topLeft() + QPoint(sidePaneWidth, barHeight) + QPoint(12, 12));
    screen.release();
}

std::optional<QPoint> FileManager::findIcon(XScreen& screen, const QRect& window)
{
    const QRect view = window.adjusted(sidePaneWidth, barHeight, -20, -40);
    const QImage picture = screen.picture(view);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y) != QColor(Qt::white))
                return view.topLeft() + QPoint(x, y + iconSize / 2);
        }
    }
    return std::nullopt;
}

} // namespace nookle::e2e

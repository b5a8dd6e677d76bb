#include "SettingsWindowController.h"

#include "AboutRow.h"
#include "FittingScrollArea.h"
#include "FixedSizeWindow.h"
#include "ProgramIcon.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QVBoxLayout>

#include <utility>

namespace nookle {

namespace {

/// What a window's title bar and frame take of a display, in most desktops less.
inline constexpr QSize frameSize(12, 40);

[[nodiscard]] QScreen& screenWithPointer()
{
    QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    return screen ? *screen : *QGuiApplication::primaryScreen();
}

void centre(QDialog& window, const QScreen& screen)
{
    // A window that gets its size after its place is placed without its frame, whose title may then lie above the
    // display.
    window.adjustSize();
    QRect frame(QPoint(), window.sizeHint() + QSize(0, frameSize.height()));
    frame.moveCenter(screen.availableGeometry().center());
    window.move(frame.topLeft());
}

} // namespace

SettingsWindowController::SettingsWindowController(AppSettings& settings, LoginItem& loginItem,
                                                   GlobalShortcuts& shortcuts, const SettingsView::Abilities& abilities,
                                                   SettingsView::ScreenshotDirectory screenshotDirectory,
                                                   DataFolderRow::Folder dataFolder,
                                                   std::function<void()> copyDiagnostics)
    : m_settings(settings)
    , m_loginItem(loginItem)
    , m_shortcuts(shortcuts)
    , m_abilities(abilities)
    , m_screenshotDirectory(std::move(screenshotDirectory))
    , m_dataFolder(std::move(dataFolder))
    , m_copyDiagnostics(std::move(copyDiagnostics))
{
}

SettingsWindowController::~SettingsWindowController() = default;

void SettingsWindowController::show()
{
    if (!m_window) {
        makeWindow();
        const QScreen& screen = screenWithPointer();
        fitWindow(screen);
        centre(*m_window, screen);
    } else {
        fitWindow(*m_window->screen());
    }
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

void SettingsWindowController::makeWindow()
{
    // No dialogue: without a window of its own to belong to, it belongs to the panel, too, and GNOME keeps it above all
    // windows as that is, also above the desktop's question about the shortcut.
    constexpr auto titleAndCloseButton =
        Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;
    m_window = std::make_unique<FixedSizeWindow>(titleAndCloseButton);
    m_window->setWindowTitle(QCoreApplication::translate("nookle::SettingsWindowController", "Nookle Settings"));
    m_window->setWindowIcon(programIcon());
    auto* form = new QWidget;
    auto* rows = new QVBoxLayout(form);
    rows->setContentsMargins({});
    rows->setSpacing(0);
    rows->addWidget(
        new SettingsView(m_settings, m_loginItem, m_shortcuts, m_abilities, m_screenshotDirectory, m_dataFolder));
    rows->addWidget(new AboutRow(m_copyDiagnostics));
    m_form = new FittingScrollArea(form);

    auto* content = new QVBoxLayout(m_window.get());
    content->setContentsMargins({});
    // The window always has the size of its form, also when a row appears or disappears.
    content->setSizeConstraint(QLayout::SetFixedSize);
    content->addWidget(m_form);
}

void SettingsWindowController::fitWindow(const QScreen& screen)
{
    m_form->setLargestSize(screen.availableGeometry().size() - frameSize);
}

} // namespace nookle

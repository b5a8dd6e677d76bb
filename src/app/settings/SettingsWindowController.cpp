#include "SettingsWindowController.h"

#include "AboutRow.h"

#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QIcon>
#include <QScreen>
#include <QVBoxLayout>

#include <utility>

namespace nookle {

namespace {

/// Centres the window on the display with the pointer.
void centre(QDialog& window)
{
    const QScreen* screen = QGuiApplication::screenAt(QCursor::pos());
    if (!screen)
        screen = QGuiApplication::primaryScreen();
    QRect frame(QPoint(), window.sizeHint());
    frame.moveCenter(screen->availableGeometry().center());
    window.move(frame.topLeft());
}

} // namespace

SettingsWindowController::SettingsWindowController(AppSettings& settings, LoginItem& loginItem,
                                                   GlobalShortcuts& shortcuts,
                                                   SettingsView::ScreenshotDirectory screenshotDirectory,
                                                   DataFolderRow::Folder dataFolder,
                                                   std::function<void()> copyDiagnostics)
    : m_settings(settings)
    , m_loginItem(loginItem)
    , m_shortcuts(shortcuts)
    , m_screenshotDirectory(std::move(screenshotDirectory))
    , m_dataFolder(std::move(dataFolder))
    , m_copyDiagnostics(std::move(copyDiagnostics))
{
}

SettingsWindowController::~SettingsWindowController() = default;

void SettingsWindowController::show()
{
    if (!m_window) {
        m_window = makeWindow();
        centre(*m_window);
    }
    m_window->show();
    m_window->raise();
    m_window->activateWindow();
}

std::unique_ptr<QDialog> SettingsWindowController::makeWindow() const
{
    constexpr auto titleAndCloseButton =
        Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowCloseButtonHint;
    auto window = std::make_unique<QDialog>(nullptr, titleAndCloseButton);
    window->setWindowTitle(QCoreApplication::translate("nookle::SettingsWindowController", "Nookle Settings"));
    window->setWindowIcon(QIcon::fromTheme(QStringLiteral("org.nookle.Nookle")));
    auto* content = new QVBoxLayout(window.get());
    content->setContentsMargins({});
    content->setSpacing(0);
    // The window always has the size of its form, also when a row appears or disappears.
    content->setSizeConstraint(QLayout::SetFixedSize);
    content->addWidget(new SettingsView(m_settings, m_loginItem, m_shortcuts, m_screenshotDirectory, m_dataFolder));
    content->addWidget(new AboutRow(m_copyDiagnostics));
    return window;
}

} // namespace nookle

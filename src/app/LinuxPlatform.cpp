#include "LinuxPlatform.h"

#include "DiagnosticsReport.h"
#include "HelperProgram.h"
#include "PlainToolTip.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QWidget>

#include <chrono>
#include <utility>

namespace nookle {

LinuxPlatform::LinuxPlatform(const QByteArray& dataHome, std::unique_ptr<DesktopBackend> desktop)
    : m_desktop(std::move(desktop))
    , m_appearance(m_desktop->toolkitSettings())
    , m_trash(dataHome)
    , m_mounts(std::make_shared<Mounts>(QFile::encodeName(QDir::homePath())))
    , m_fileReferences(QFile::encodeName(QDir::homePath()), dataHome, m_queue, std::chrono::steady_clock::now, m_mounts)
    , m_pictures(m_mounts, m_queue)
    , m_linkMetadata(helperProgram(QCoreApplication::applicationDirPath(), QStringLiteral("nookle-lookup")),
                     m_pictures.converter(), m_queue)
    , m_pasteboard(m_pictures.converter(), m_desktop->clipboard() ? *m_desktop->clipboard() : m_toolkitClipboard)
    , m_fileTransfers(m_mounts)
    , m_loginItem(QCoreApplication::applicationFilePath())
    , m_folders(m_mounts)
    , m_screenshotSettings(m_defaults, m_mounts)
{
    m_appearance.onChanged = [this] { showLook(); };
    showLook();
    m_loginItem.renew();
}

LinuxPlatform::~LinuxPlatform() = default;

void LinuxPlatform::showLook()
{
    QApplication::setEffectEnabled(Qt::UI_General, m_appearance.look().wantsMotion);
    useToolTipColors(QApplication::palette());
    for (QWidget* widget : QApplication::allWidgets()) {
        // The toolkit tells widgets only of a font that is set by its class for widgets.
        QEvent fontChange(QEvent::ApplicationFontChange);
        QApplication::sendEvent(widget, &fontChange);
        // Icons are looked up at each painting.
        widget->update();
    }
}

AppDelegate::Platform LinuxPlatform::parts()
{
    return {
        .desktop = *m_desktop,
        .queue = m_queue,
        .defaults = m_defaults,
        .trash = m_trash,
        .fileReferences = m_fileReferences,
        .thumbnails = m_pictures.thumbnails(),
        .linkMetadata = m_linkMetadata,
        .pasteboard = m_pasteboard,
        .workspace = m_workspace,
        .fileTransfers = m_fileTransfers,
        .notifierTray = m_notifierTray,
        .notifier = m_notifier,
        .requests = m_requests,
        .loginItem = m_loginItem,
        .folders = m_folders,
        .screenshotSettings = m_screenshotSettings,
        .diagnostics = diagnosticsReport,
    };
}

} // namespace nookle

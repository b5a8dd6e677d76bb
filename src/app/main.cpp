#include "AppDelegate.h"
#include "BusLoss.h"
#include "DesktopBackendFactory.h"
#include "FileArguments.h"
#include "FilePlaces.h"
#include "FileUrl.h"
#include "LinuxPlatform.h"
#include "Log.h"
#include "LogOutput.h"
#include "Mounts.h"
#include "OutlinedStyle.h"
#include "ProgramStart.h"
#include "ProgramVersion.h"
#include "SessionEnd.h"
#include "SessionStart.h"
#include "SettingsUserDefaults.h"
#include "SingleInstance.h"
#include "TerminationSignals.h"
#include "ToolkitEnvironment.h"
#include "Translations.h"

#include <QApplication>
#include <QDBusConnection>
#include <QDir>
#include <QFile>
#include <QIcon>
#include <QLocale>
#include <QStandardPaths>

#include <cstdlib>
#include <optional>
#include <utility>

namespace {

[[nodiscard]] QByteArray dataHome()
{
    return QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
}

void describeApplication()
{
    QApplication::setApplicationName(QStringLiteral("nookle"));
    QApplication::setApplicationVersion(nookle::programVersion());
    QApplication::setDesktopFileName(QStringLiteral("org.nookle.Nookle"));
    QApplication::setQuitOnLastWindowClosed(false);
    // For desktops without an icon theme, or with one that lacks icons for some file types.
    QIcon::setFallbackThemeName(QStringLiteral("Adwaita"));
    nookle::OutlinedStyle::useInstead();
}

/// The arguments that the toolkit has not removed, as bytes.
[[nodiscard]] nookle::FileArguments fileArguments(int argc, char* argv[])
{
    const QList<QByteArray> arguments(argv + 1, argv + argc);
    nookle::Mounts mounts(QFile::encodeName(QDir::homePath()));
    const nookle::FilePlaces places(mounts.table());
    return nookle::FileArguments::parse(arguments, QFile::encodeName(QDir::currentPath()), [&](const QByteArray& path) {
        return places.mayLookAt(path, nookle::FilePlaces::Links::refuse);
    });
}

/// The delegate that has something to save; null before and after.
nookle::AppDelegate* savedAtExit = nullptr;

/// The toolkit ends the process in the middle of its work when the X server has gone.
void saveAtExit()
{
    if (nookle::AppDelegate* delegate = std::exchange(savedAtExit, nullptr))
        delegate->applicationWillTerminate();
}

int run(nookle::SingleInstance& instance, nookle::DesktopKind desktop, const QUrl& dataFolder, const QStringList& uris,
        nookle::StartReason reason)
{
    const nookle::Translations translations(nookle::Translations::folder(QApplication::applicationDirPath()),
                                            QLocale::system().uiLanguages());
    const auto introduction = nookle::isFirstStart(dataFolder, nookle::SettingsUserDefaults::defaultPath())
        ? nookle::AppDelegate::Introduction::wanted
        : nookle::AppDelegate::Introduction::none;
    // Ends the program, because it cannot save its shelf any more.
    instance.onFolderLost = [] { QApplication::exit(EXIT_FAILURE); };
    nookle::LinuxPlatform platform(dataHome(), nookle::makeDesktopBackend(desktop));
    nookle::AppDelegate delegate(
        platform.parts(), dataFolder, [&instance] { return instance.claimFolder(); }, introduction);
    delegate.applicationDidFinishLaunching();
    if (!uris.isEmpty())
        delegate.open(uris);
    else if (reason == nookle::StartReason::user)
        delegate.showShelf();
    nookle::SessionEnd sessionEnd;
    sessionEnd.onSave = [&delegate] { delegate.applicationWillTerminate(); };
    sessionEnd.onEnd = [] { QApplication::exit(); };
    instance.onShowRequested = [&delegate] { delegate.showShelf(); };
    instance.onAddRequested = [&delegate](const QStringList& added) { return delegate.open(added); };
    savedAtExit = &delegate;
    std::atexit(&saveAtExit);
    const int result = QApplication::exec();
    savedAtExit = nullptr;
    instance.onShowRequested = nullptr;
    instance.onAddRequested = nullptr;
    delegate.applicationWillTerminate();
    return result;
}

} // namespace

int main(int argc, char* argv[])
{
    nookle::sendLogToStandardError();
    const auto selected = nookle::selectDesktopBackend();
    if (const auto* failure = std::get_if<nookle::Failure>(&selected)) {
        nookle::logLine(failure->description);
        return EXIT_FAILURE;
    }
    const auto& choice = std::get<nookle::BackendChoice>(selected);
    const nookle::StartReason reason = nookle::takeStartReason();
    nookle::outliveSessionBus();
    std::optional<nookle::ToolkitEnvironment> environment(std::in_place, choice, nookle::desktopScale(choice.kind));
    QApplication application(argc, argv);
    environment.reset();
    describeApplication();

    const nookle::FileArguments arguments = fileArguments(argc, argv);
    for (const QByteArray& unknown : arguments.unknown)
        nookle::logLine(QStringLiteral("neither a file nor an address: %1").arg(QFile::decodeName(unknown)));
    if (!arguments.unknown.isEmpty() && arguments.uris.isEmpty())
        return EXIT_FAILURE;

    const bool isPlainLogin = reason == nookle::StartReason::login && arguments.uris.isEmpty();
    if (isPlainLogin && nookle::startBySession(QDBusConnection::sessionBus()))
        return EXIT_SUCCESS;

    const QUrl dataFolder = nookle::child(nookle::fileUrl(dataHome()), QStringLiteral("Nookle"));
    nookle::SingleInstance instance(dataFolder, qgetenv("XDG_RUNTIME_DIR"));
    switch (instance.claim(arguments.uris)) {
    case nookle::SingleInstance::Claim::granted:
        break;
    case nookle::SingleInstance::Claim::doneByOther:
        return EXIT_SUCCESS;
    case nookle::SingleInstance::Claim::refusedByOther:
        nookle::logLine(QStringLiteral("not added: %1").arg(instance.refusal()));
        return EXIT_FAILURE;
    case nookle::SingleInstance::Claim::otherIsSilent:
        nookle::logLine(QStringLiteral("another program holds the shelf and does not answer"));
        return EXIT_FAILURE;
    }
    // Not quit(), which asks every window first: the panel refuses to be closed.
    const nookle::TerminationSignals signals([] { QApplication::exit(); });
    nookle::logLine(choice.description);
    return run(instance, choice.kind, dataFolder, arguments.uris, reason);
}

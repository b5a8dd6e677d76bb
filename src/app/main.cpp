#include "AppDelegate.h"
#include "DesktopBackendFactory.h"
#include "FileUrl.h"
#include "Log.h"
#include "LogOutput.h"
#include "SingleInstance.h"
#include "TerminationSignals.h"

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QStandardPaths>

#include <cstdlib>

namespace {

[[nodiscard]] QByteArray dataHome()
{
    return QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation));
}

void describeApplication()
{
    QApplication::setApplicationName(QStringLiteral("nookle"));
    QApplication::setDesktopFileName(QStringLiteral("org.nookle.Nookle"));
    QApplication::setQuitOnLastWindowClosed(false);
    // A desktop without an icon theme of its own, or with one that lacks a kind of file.
    QIcon::setFallbackThemeName(QStringLiteral("Adwaita"));
}

int run(nookle::SingleInstance& instance, const QUrl& dataFolder)
{
    nookle::AppDelegate delegate(dataHome(), dataFolder, nookle::makeDesktopBackend());
    delegate.applicationDidFinishLaunching();
    instance.onShowRequested = [&delegate] { delegate.showShelf(); };
    const int result = QApplication::exec();
    instance.onShowRequested = nullptr;
    delegate.applicationWillTerminate();
    return result;
}

} // namespace

int main(int argc, char* argv[])
{
    nookle::sendLogToStandardError();
    if (const auto failure = nookle::selectDesktopBackend()) {
        nookle::logLine(failure->description);
        return EXIT_FAILURE;
    }
    QApplication application(argc, argv);
    describeApplication();

    const QUrl dataFolder = nookle::child(nookle::fileUrl(dataHome()), QStringLiteral("Nookle"));
    nookle::SingleInstance instance(dataFolder);
    switch (instance.claim()) {
    case nookle::SingleInstance::Claim::granted:
        break;
    case nookle::SingleInstance::Claim::shownByOther:
        return EXIT_SUCCESS;
    case nookle::SingleInstance::Claim::otherIsSilent:
        nookle::logLine(QStringLiteral("another program holds the shelf and does not answer"));
        return EXIT_FAILURE;
    }
    // Not quit(), which asks every window first: the panel refuses to be closed.
    const nookle::TerminationSignals signals([] { QApplication::exit(); });
    return run(instance, dataFolder);
}

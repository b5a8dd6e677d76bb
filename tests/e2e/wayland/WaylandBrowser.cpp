#include "WaylandBrowser.h"

#include "Browser.h"
#include "BrowserPage.h"
#include "Waiting.h"
#include "WebServer.h"

#include <optional>
#include <utility>

namespace nookle::e2e {

namespace {

/// A browser takes longer to start than anything else here.
inline constexpr int patienceForBrowser = 60000;

[[nodiscard]] std::unique_ptr<Program> startChromium(WaylandDesktop& desktop, WaylandBrowser::Kind kind,
                                                     const QString& url)
{
    const bool isX11Program = kind == WaylandBrowser::Kind::x11Program;
    const QString platform = isX11Program ? QStringLiteral("x11") : QStringLiteral("wayland");
    // Its own sandbox does not work for root, whom tests often run as; the pages are the tests' own.
    return desktop.start(QStringLiteral("chromium"),
                         { QStringLiteral("--ozone-platform=") + platform, QStringLiteral("--no-sandbox"),
                           QStringLiteral("--test-type"), QStringLiteral("--no-first-run"),
                           QStringLiteral("--disable-gpu"), QStringLiteral("--disable-dev-shm-usage"),
                           QStringLiteral("--disable-background-networking"), QStringLiteral("--password-store=basic"),
                           QStringLiteral("--start-maximized"),
                           QStringLiteral("--user-data-dir=") + desktop.home(QStringLiteral("browser")),
                           QStringLiteral("--app=") + url });
}

/// Without the pages of its first start, and without what it asks of the internet.
[[nodiscard]] QByteArray firefoxSettings()
{
    QByteArray settings;
    for (const char* name :
         { "app.normandy.enabled", "browser.aboutwelcome.enabled", "browser.shell.checkDefaultBrowser",
           "datareporting.policy.dataSubmissionEnabled", "extensions.update.enabled",
           "network.captive-portal-service.enabled", "network.connectivity-service.enabled" })
        settings += QByteArray("user_pref(\"") + name + "\", false);\n";
    return settings + "user_pref(\"browser.startup.homepage_override.mstone\", \"ignore\");\n";
}

[[nodiscard]] std::unique_ptr<Program> startFirefox(WaylandDesktop& desktop, WaylandBrowser::Kind kind,
                                                    const QString& url)
{
    desktop.writeFile(QStringLiteral("browser/user.js"), firefoxSettings());
    const bool isX11Program = kind == WaylandBrowser::Kind::x11Program;
    desktop.setVariable(QStringLiteral("MOZ_ENABLE_WAYLAND"), isX11Program ? QStringLiteral("0") : QStringLiteral("1"));
    // KWin leaves it the size that it asks for, and all of the page must be seen.
    const QSize size = isX11Program ? QSize(1200, 680) : QSize(800, 500);
    return desktop.start(QStringLiteral("firefox-esr"),
                         { QStringLiteral("--no-remote"), QStringLiteral("--profile"),
                           desktop.home(QStringLiteral("browser")), QStringLiteral("--width"),
                           QString::number(size.width()), QStringLiteral("--height"), QString::number(size.height()),
                           url });
}

} // namespace

std::unique_ptr<WaylandBrowser> WaylandBrowser::tryOpen(const QString& name, Kind kind, const QString& url,
                                                        WaylandDesktop& desktop)
{
    std::unique_ptr<WaylandBrowser> browser(new WaylandBrowser);
    browser->m_program =
        name == QLatin1String("firefox") ? startFirefox(desktop, kind, url) : startChromium(desktop, kind, url);
    // Its window gets its last place while it starts.
    std::optional<QPoint> origin;
    const bool isReady = waitFor(
        [&] {
            const QImage picture = desktop.picture(QRect(QPoint(), WaylandDesktop::displaySize));
            const auto previous = std::exchange(origin, Browser::findMarker(picture));
            return origin && origin == previous;
        },
        patienceForBrowser);
    if (!isReady) {
        qWarning("no page: %s", browser->m_program->log().constData());
        return nullptr;
    }
    browser->m_origin = *origin;
    return browser;
}

bool WaylandBrowser::hearsPointer(Hand& hand, const WebServer& server) const
{
    return waitFor(
        [&] {
            const QPoint place = browserPage::empty;
            hand.moveTo(at(place) + QPoint(4, 0));
            hand.moveTo(at(place));
            return server.posted(QStringLiteral("/pointer"))
                == QByteArray::number(place.x()) + ' ' + QByteArray::number(place.y());
        },
        patienceForBrowser);
}

} // namespace nookle::e2e

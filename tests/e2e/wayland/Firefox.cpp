#include "Firefox.h"

#include "Browser.h"
#include "Waiting.h"

#include <utility>

namespace nookle::e2e {

namespace {

/// A browser takes longer to start than anything else here.
inline constexpr int patienceForBrowser = 40000;

// No pages and questions of its own, and nothing is asked of the internet.
constexpr auto* settings = "user_pref('browser.aboutwelcome.enabled', false);\n"
                           "user_pref('browser.shell.checkDefaultBrowser', false);\n"
                           "user_pref('datareporting.policy.dataSubmissionEnabled', false);\n"
                           "user_pref('app.normandy.enabled', false);\n"
                           "user_pref('network.captive-portal-service.enabled', false);\n"
                           "user_pref('network.connectivity-service.enabled', false);\n"
                           "user_pref('services.settings.server', 'http://127.0.0.1:9/');\n";

} // namespace

std::unique_ptr<Firefox> Firefox::tryOpen(const WaylandDesktop& desktop, const QString& url)
{
    std::unique_ptr<Firefox> firefox(new Firefox);
    desktop.writeFile(QStringLiteral("firefox/user.js"), settings);
    firefox->m_program = desktop.start(
        QStringLiteral("firefox-esr"),
        { QStringLiteral("--new-instance"), QStringLiteral("--profile"), desktop.home(QStringLiteral("firefox")),
          QStringLiteral("--width"), QStringLiteral("800"), QStringLiteral("--height"), QStringLiteral("500"), url });
    const QRect screen(QPoint(), WaylandDesktop::displaySize);
    std::optional<QPoint> origin;
    const bool isReady = waitFor(
        [&] {
            const auto previous = std::exchange(origin, Browser::findMarker(desktop.picture(screen)));
            return origin && origin == previous;
        },
        patienceForBrowser);
    if (!isReady) {
        qWarning("no page: %s", firefox->m_program->log().constData());
        return nullptr;
    }
    firefox->m_origin = *origin;
    return firefox;
}

} // namespace nookle::e2e

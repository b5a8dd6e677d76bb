#include "Browser.h"

#include "Waiting.h"

#include <utility>

namespace nookle::e2e {

namespace {

inline constexpr QRgb markerColor = 0xffff00fe;
/// A browser takes longer to start than anything else here.
inline constexpr int patienceForBrowser = 40000;

} // namespace

QByteArray Browser::marker()
{
    return "position:absolute;left:0;top:0;width:8px;height:8px;background:#ff00fe";
}

std::unique_ptr<Browser> Browser::tryOpen(PrivateDesktop& desktop, const QString& url)
{
    std::unique_ptr<Browser> browser(new Browser);
    // Its own sandbox does not work for root, whom tests often run as; the pages are the tests' own.
    browser->m_program =
        desktop.start(QStringLiteral("chromium"),
                      { QStringLiteral("--no-sandbox"), QStringLiteral("--test-type"), QStringLiteral("--no-first-run"),
                        QStringLiteral("--disable-gpu"), QStringLiteral("--disable-dev-shm-usage"),
                        QStringLiteral("--disable-background-networking"), QStringLiteral("--password-store=basic"),
                        QStringLiteral("--window-position=20,20"), QStringLiteral("--window-size=700,600"),
                        QStringLiteral("--user-data-dir=") + desktop.home(QStringLiteral("browser")),
                        QStringLiteral("--app=") + url });
    std::optional<QPoint> origin;
    const bool isReady = waitFor(
        [&] {
            const auto previous = std::exchange(origin, findMarker(desktop.screen().picture()));
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

std::optional<QPoint> Browser::findMarker(const QImage& picture)
{
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) == markerColor)
                return QPoint(x, y);
        }
    }
    return std::nullopt;
}

} // namespace nookle::e2e

#include "BrowserPage.h"
#include "Waiting.h"
#include "WaylandBrowser.h"
#include "WaylandShelfDesktop.h"
#include "WebServer.h"

#include <QImage>
#include <QJsonObject>
#include <QtTest>

#include <filesystem>
#include <memory>

using namespace nookle::e2e;

namespace {

inline constexpr int rightEdge = WaylandDesktop::displaySize.width();
inline constexpr int panelWidth = 112;

[[nodiscard]] QJsonObject contentOf(const QJsonObject& item, const char* kind)
{
    return item.value(QLatin1String("content")).toObject().value(QLatin1String(kind)).toObject();
}

/// Some browsers write the picture anew.
[[nodiscard]] bool isSamePicture(const QByteArray& left, const QByteArray& right)
{
    const auto picture = [](const QByteArray& bytes) {
        return QImage::fromData(bytes).convertToFormat(QImage::Format_ARGB32);
    };
    return !picture(left).isNull() && picture(left) == picture(right);
}

} // namespace

/// Drags from and to a browser, which is an X11 program where the compositor has a bridge to those, or else a native
/// Wayland program.
class WaylandBrowserTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void anImageOfAPageLandsAsAnImageWithItsName();
    void aLinkLandsWithItsAddressAndItsTitle();
    void selectedTextLandsAsText();
    void aTextGoesIntoATextField();
    void aLinkGoesIntoATextField();
    void anImageGoesIntoAnUploadField();
    void aFileGoesIntoAnUploadField();
    void aScriptOfASavedPageCannotChooseAFile();

private:
    void keepTestPicture() const;
    /// Moves the pointer about that place of the desktop until the condition holds.
    template <typename Condition> [[nodiscard]] bool keepMoving(const QPoint& where, Condition condition);
    /// Moves the pointer about that place of the page until the page tells the server.
    [[nodiscard]] bool pageHears(const QString& path, const QPoint& where);
    [[nodiscard]] bool dragToShelf(const QPoint& place);
    [[nodiscard]] bool dragFirstTileTo(const QPoint& place);
    [[nodiscard]] QJsonObject onlyItem() const;
    [[nodiscard]] QString typed() const { return QString::fromUtf8(m_server.posted(QStringLiteral("/typed"))); }

    QString m_name = qEnvironmentVariable("NOOKLE_BROWSER");
    WaylandBrowser::Kind m_kind = compositor() == WaylandDesktop::Compositor::kwinInWindowWithX11
        ? WaylandBrowser::Kind::x11Program
        : WaylandBrowser::Kind::waylandProgram;
    WebServer m_server;
    std::unique_ptr<WaylandBrowser> m_browser;
};

void WaylandBrowserTest::initTestCase()
{
    QVERIFY2(!m_name.isEmpty(), "run it with ctest, which says which browser is tested, and where");
    QVERIFY(m_server.isRunning());
    browserPage::serve(m_server);
    QVERIFY(setUpDesktop(compositor()));
    if (m_kind == WaylandBrowser::Kind::x11Program)
        runPeersOnX11();
    m_browser = WaylandBrowser::tryOpen(m_name, m_kind, m_server.url(QStringLiteral("/")), *m_desktop);
    const bool isReady = m_browser && m_browser->hearsPointer(hand(), m_server);
    if (!isReady)
        tellFailure(m_name + QStringLiteral(".png"));
    QVERIFY(isReady);
}

void WaylandBrowserTest::init()
{
    std::filesystem::remove_all(home("data/Nookle").toStdString());
    QVERIFY(startShelf());
}

void WaylandBrowserTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png").arg(m_name, QLatin1String(QTest::currentTestFunction())));
    hand().release();
    hand().moveTo(m_browser->at(browserPage::empty));
    QVERIFY(m_shelf->stop());
}

void WaylandBrowserTest::cleanupTestCase()
{
    m_browser.reset();
    tearDownDesktop();
}

void WaylandBrowserTest::keepTestPicture() const
{
    keepPicture(
        QStringLiteral("%1-%2-%3.png")
            .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), m_name, QLatin1String(QTest::currentTestFunction())));
}

// A browser takes its time, and is told of where the drag is only by the next movement.
template <typename Condition> bool WaylandBrowserTest::keepMoving(const QPoint& where, Condition condition)
{
    return waitFor([&] {
        hand().moveTo(where + QPoint(0, 4));
        hand().moveTo(where);
        return condition();
    });
}

bool WaylandBrowserTest::pageHears(const QString& path, const QPoint& where)
{
    m_server.forget(path);
    return keepMoving(m_browser->at(where), [&] { return !m_server.posted(path).isEmpty(); });
}

bool WaylandBrowserTest::dragToShelf(const QPoint& place)
{
    hand().moveTo(m_browser->at(place));
    hand().press();
    if (!pageHears(QStringLiteral("/dragging"), place + QPoint(60, 0))
        || !keepMoving(QPoint(rightEdge - 1, middle.y()), [this] { return isPanelOut(); })
        || !keepMoving(QPoint(rightEdge - panelWidth / 2, middle.y()), [this] { return isDropTarget(); }))
        return false;
    keepTestPicture();
    hand().release();
    return waitFor([this] { return !m_shelf->savedItems().isEmpty(); });
}

bool WaylandBrowserTest::dragFirstTileTo(const QPoint& place)
{
    if (!showShelf())
        return false;
    hand().moveTo(firstTile());
    hand().press();
    hand().moveTo(m_browser->at(place) + QPoint(40, 0));
    // A browser tells with every movement whether it would take the drop.
    constexpr int enough = 3;
    for (int times = 0; times < enough; ++times) {
        if (!pageHears(QStringLiteral("/over"), place))
            return false;
    }
    keepTestPicture();
    hand().release();
    return true;
}

QJsonObject WaylandBrowserTest::onlyItem() const
{
    const QList<QJsonObject> items = m_shelf->savedItems();
    return items.size() == 1 ? items.first() : QJsonObject();
}

void WaylandBrowserTest::anImageOfAPageLandsAsAnImageWithItsName()
{
    QVERIFY(dragToShelf(browserPage::picture));
    const QJsonObject item = onlyItem();
    const QString name = contentOf(item, "image").value(QLatin1String("fileName")).toString();
    QCOMPARE(name, QLatin1String(browserPage::pictureName));
    const QString path =
        QStringLiteral("data/Nookle/Files/%1/%2").arg(item.value(QLatin1String("id")).toString(), name);
    const QByteArray bytes = content(path.toUtf8().constData());
    if (m_name == QLatin1String("chromium"))
        QCOMPARE(bytes, browserPage::picturePng());
    else
        QVERIFY2(isSamePicture(bytes, browserPage::picturePng()), "another picture");
}

void WaylandBrowserTest::aLinkLandsWithItsAddressAndItsTitle()
{
    QVERIFY(dragToShelf(browserPage::link));
    const QJsonObject link = contentOf(onlyItem(), "link");
    QCOMPARE(link.value(QLatin1String("url")).toString(), m_server.url(browserPage::linkPath()));
    QCOMPARE(link.value(QLatin1String("title")).toString(), QString::fromUtf8(browserPage::linkTitle));
}

void WaylandBrowserTest::selectedTextLandsAsText()
{
    QVERIFY(dragToShelf(browserPage::words));
    const QJsonObject text = contentOf(onlyItem(), "text");
    QCOMPARE(text.value(QLatin1String("_0")).toString().trimmed(), QString::fromUtf8(browserPage::selectedWords));
}

void WaylandBrowserTest::aTextGoesIntoATextField()
{
    QVERIFY(dragToShelf(browserPage::words));
    QVERIFY(dragFirstTileTo(browserPage::field));
    QVERIFY(waitFor([this] { return typed().contains(QString::fromUtf8(browserPage::selectedWords)); }));
}

void WaylandBrowserTest::aLinkGoesIntoATextField()
{
    QVERIFY(dragToShelf(browserPage::link));
    QVERIFY(dragFirstTileTo(browserPage::field));
    QVERIFY(waitFor([this] { return typed().contains(m_server.url(browserPage::linkPath())); }));
}

void WaylandBrowserTest::anImageGoesIntoAnUploadField()
{
    QVERIFY(dragToShelf(browserPage::picture));
    QVERIFY(dragFirstTileTo(browserPage::upload));
    QVERIFY(waitFor(
        [this] { return isSamePicture(m_server.posted(QStringLiteral("/uploaded")), browserPage::picturePng()); }));
    QCOMPARE(m_server.posted(QStringLiteral("/name")), QByteArray(browserPage::pictureName) + " image/png");
}

void WaylandBrowserTest::aFileGoesIntoAnUploadField()
{
    QCOMPARE(m_shelf->startAgain({ home("files/note one.txt") }), 0);
    QVERIFY(waitFor([this] { return m_shelf->savedItems().size() == 1; }));
    QVERIFY(dragFirstTileTo(browserPage::upload));
    QVERIFY(waitFor([this] { return m_server.posted(QStringLiteral("/uploaded")) == "words"; }));
    QCOMPARE(m_server.posted(QStringLiteral("/name")), "note one.txt text/plain");
}

void WaylandBrowserTest::aScriptOfASavedPageCannotChooseAFile()
{
    // The browser itself sees to it that a page of the web does not name a file.
    m_browser.reset();
    m_server.forget(QStringLiteral("/pointer"));
    const QByteArray base = "<base href='" + m_server.url(QStringLiteral("/")).toLatin1() + "'>";
    m_desktop->writeFile(QStringLiteral("page.html"), base + browserPage::html());
    m_browser = WaylandBrowser::tryOpen(m_name, m_kind, QStringLiteral("file://") + home("page.html"), *m_desktop);
    QVERIFY(m_browser);
    QVERIFY(m_browser->hearsPointer(hand(), m_server));
    QVERIFY(dragToShelf(browserPage::script));
    const QJsonObject text = contentOf(onlyItem(), "text");
    QCOMPARE(text.value(QLatin1String("_0")).toString(), QStringLiteral("Words of a script"));
}

QTEST_GUILESS_MAIN(WaylandBrowserTest)
#include "WaylandBrowserTest.moc"

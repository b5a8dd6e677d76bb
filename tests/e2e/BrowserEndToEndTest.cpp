#include "Browser.h"
#include "BrowserPage.h"
#include "FileManager.h"
#include "PrivateDesktop.h"
#include "Shelf.h"
#include "Waiting.h"
#include "WebServer.h"

#include <QFile>
#include <QImage>
#include <QTest>

#include <filesystem>
#include <memory>

using namespace nookle::e2e;

namespace {

inline constexpr QSize screenSize(1200, 700);
inline constexpr int rightEdge = screenSize.width();
inline constexpr int panelWidth = 112;

[[nodiscard]] QJsonObject content(const QJsonObject& item, const char* kind)
{
    return item.value(QLatin1String("content")).toObject().value(QLatin1String(kind)).toObject();
}

} // namespace

class BrowserEndToEndTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();

    void aLaterDragReachesTheShelfToo();
    void anImageOfAPageLandsAsAnImageWithItsNameAndItsBytes();
    void aLinkLandsWithItsAddressAndItsTitle();
    void selectedTextLandsAsText();
    void aScriptOfASavedPageCannotChooseAFile();
    void aTextGoesIntoATextField();
    void aLinkGoesIntoATextField();
    void anImageGoesIntoAnUploadField();
    void aLinkShowsThePagesTitleAndIconAlsoAfterARestart();

private:
    [[nodiscard]] XScreen& screen() { return m_desktop->screen(); }
    [[nodiscard]] bool dragToShelf(const QPoint& place);
    [[nodiscard]] bool dragFirstTileTo(const QPoint& place);
    [[nodiscard]] bool isDropTarget();
    [[nodiscard]] QJsonObject onlyItem();

    WebServer m_server;
    std::unique_ptr<PrivateDesktop> m_desktop;
    std::unique_ptr<Browser> m_browser;
    std::unique_ptr<Shelf> m_shelf;
};

void BrowserEndToEndTest::initTestCase()
{
    QVERIFY2(qEnvironmentVariableIsSet("NOOKLE_PROGRAM"), "run it with ctest, which says which program is tested");
    QVERIFY(m_server.isRunning());
    browserPage::serve(m_server);
    m_desktop = PrivateDesktop::tryCreate({ screenSize, QStringLiteral("openbox"), false });
    QVERIFY(m_desktop);
}

void BrowserEndToEndTest::init()
{
    m_browser = Browser::tryOpen(*m_desktop, m_server.url(QStringLiteral("/")));
    QVERIFY(m_browser);
    std::filesystem::remove_all(m_desktop->home(QStringLiteral("data/Nookle")).toStdString());
    m_shelf = std::make_unique<Shelf>(*m_desktop, qEnvironmentVariable("NOOKLE_PROGRAM"));
    QVERIFY(m_shelf->start());
}

void BrowserEndToEndTest::cleanup()
{
    if (QTest::currentTestFailed() && m_shelf) {
        const QString picture = QStringLiteral("browser-%1.png").arg(QLatin1String(QTest::currentTestFunction()));
        screen().picture().save(picture);
        screen().release();
        qInfo("the screen at the end: %s\nthe log: %s", qPrintable(picture), m_shelf->log().constData());
    }
    m_shelf.reset();
    m_browser.reset();
}

void BrowserEndToEndTest::cleanupTestCase()
{
    m_desktop.reset();
}

bool BrowserEndToEndTest::dragToShelf(const QPoint& place)
{
    const qsizetype before = m_shelf->savedItems().size();
    if (!screen().beginDrag(m_browser->at(place)))
        return false;
    screen().moveTo(QPoint(rightEdge - 1, 300));
    if (!waitFor([this] { return m_shelf->isAtRest(rightEdge); }))
        return false;
    screen().moveTo(QPoint(rightEdge - panelWidth / 2, 320));
    // A browser looks what is below the pointer only at a movement.
    const auto isTarget = [this] {
        screen().moveTo(screen().pointer() + QPoint(0, 2));
        screen().moveTo(screen().pointer() - QPoint(0, 2));
        return m_shelf->isDropTarget();
    };
    if (!waitFor(isTarget))
        return false;
    screen().release();
    return waitFor([&] { return m_shelf->savedItems().size() > before; });
}

bool BrowserEndToEndTest::dragFirstTileTo(const QPoint& place)
{
    if (m_shelf->startAgain() != 0 || !waitFor([this] { return m_shelf->isAtRest(rightEdge); }))
        return false;
    if (!screen().beginDrag(m_shelf->firstTile()))
        return false;
    screen().moveTo(place - QPoint(10, 4));
    screen().moveTo(place);
    // Programs tell with every movement whether they would take the drop.
    for (const int by : { 2, -2, 2, -2 })
        screen().moveTo(screen().pointer() + QPoint(by, 0));
    screen().release();
    return true;
}

QJsonObject BrowserEndToEndTest::onlyItem()
{
    const QList<QJsonObject> items = m_shelf->savedItems();
    return items.size() == 1 ? items.first() : QJsonObject();
}

void BrowserEndToEndTest::aLaterDragReachesTheShelfToo()
{
    QVERIFY(dragToShelf(browserPage::picture));
    screen().moveTo(m_browser->at(browserPage::picture));
    QVERIFY(waitFor([this] { return !m_shelf->panel(); }));
    QVERIFY(dragToShelf(browserPage::link));
}

void BrowserEndToEndTest::anImageOfAPageLandsAsAnImageWithItsNameAndItsBytes()
{
    QVERIFY(dragToShelf(browserPage::picture));
    const QJsonObject item = onlyItem();
    const QString name = content(item, "image").value(QLatin1String("fileName")).toString();
    QCOMPARE(name, QStringLiteral("green square.png"));
    QFile image(m_desktop->home(QStringLiteral("data/Nookle/Files/%1/%2"))
                    .arg(item.value(QLatin1String("id")).toString(), name));
    QVERIFY(image.open(QIODevice::ReadOnly));
    QCOMPARE(image.readAll(), browserPage::picturePng());
}

void BrowserEndToEndTest::aLinkLandsWithItsAddressAndItsTitle()
{
    QVERIFY(dragToShelf(browserPage::link));
    const QJsonObject link = content(onlyItem(), "link");
    QCOMPARE(link.value(QLatin1String("url")).toString(), m_server.url(QStringLiteral("/linked?a=1&b=%C3%BC")));
    QCOMPARE(link.value(QLatin1String("title")).toString(), QStringLiteral("A link to someöwhere"));
}

void BrowserEndToEndTest::selectedTextLandsAsText()
{
    QVERIFY(dragToShelf(browserPage::words));
    const QJsonObject text = content(onlyItem(), "text");
    QCOMPARE(text.value(QLatin1String("_0")).toString().trimmed(), QStringLiteral("Words, and € 5"));
}

void BrowserEndToEndTest::aScriptOfASavedPageCannotChooseAFile()
{
    // The browser itself sees to it that a page of the web does not name a file.
    m_browser.reset();
    m_desktop->writeFile(QStringLiteral("page.html"), browserPage::html());
    m_browser = Browser::tryOpen(*m_desktop, QStringLiteral("file://") + m_desktop->home(QStringLiteral("page.html")));
    QVERIFY(m_browser);
    QVERIFY(dragToShelf(browserPage::script));
    const QJsonObject text = content(onlyItem(), "text");
    QCOMPARE(text.value(QLatin1String("_0")).toString(), QStringLiteral("Words of a script"));
}

void BrowserEndToEndTest::aTextGoesIntoATextField()
{
    QVERIFY(dragToShelf(browserPage::words));
    QVERIFY(dragFirstTileTo(m_browser->at(browserPage::field)));
    QVERIFY(waitFor([this] {
        return QString::fromUtf8(m_server.posted(QStringLiteral("/typed"))).trimmed()
            == QStringLiteral("Words, and € 5");
    }));
}

void BrowserEndToEndTest::aLinkGoesIntoATextField()
{
    QVERIFY(dragToShelf(browserPage::link));
    QVERIFY(dragFirstTileTo(m_browser->at(browserPage::field)));
    QVERIFY(waitFor([this] {
        return m_server.posted(QStringLiteral("/typed"))
            == m_server.url(QStringLiteral("/linked?a=1&b=%C3%BC")).toUtf8();
    }));
}

void BrowserEndToEndTest::anImageGoesIntoAnUploadField()
{
    QVERIFY(dragToShelf(browserPage::picture));
    QVERIFY(dragFirstTileTo(m_browser->at(browserPage::upload)));
    QVERIFY(waitFor([this] { return m_server.posted(QStringLiteral("/uploaded")) == browserPage::picturePng(); }));
    QCOMPARE(m_server.posted(QStringLiteral("/name")), QByteArray("green square.png image/png"));
}

void BrowserEndToEndTest::aLinkShowsThePagesTitleAndIconAlsoAfterARestart()
{
    const QColor color(0xe0, 0x60, 0x10);
    m_server.serve(QStringLiteral("/linked?a=1&b=%C3%BC"), "text/html; charset=utf-8",
                   "<title>The linked\n p\xc3\xa4ge</title><link rel=icon sizes=64x64 href='icon.png'>");
    m_server.serve(QStringLiteral("/icon.png"), "image/png", browserPage::squarePng(64, color));
    const auto showsIcon = [&] {
        return screen().picture(QRect(m_shelf->firstTile(), QSize(1, 1))).pixelColor(0, 0) == color;
    };

    QVERIFY(dragToShelf(browserPage::link));
    QVERIFY(waitFor([this] { return content(onlyItem(), "link").value(QLatin1String("hasIcon")).toBool(); }));
    QCOMPARE(content(onlyItem(), "link").value(QLatin1String("title")).toString(), QStringLiteral("The linked päge"));
    QVERIFY2(waitFor(showsIcon), "the tile does not show the icon");

    const QList<QJsonObject> saved = m_shelf->savedItems();
    QVERIFY(m_shelf->stop());
    QVERIFY(m_shelf->start());
    QCOMPARE(m_shelf->startAgain(), 0);
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(rightEdge); }));
    QVERIFY2(waitFor(showsIcon), "the icon is not back after the restart");
    QCOMPARE(m_shelf->savedItems(), saved);
}

QTEST_GUILESS_MAIN(BrowserEndToEndTest)
#include "BrowserEndToEndTest.moc"

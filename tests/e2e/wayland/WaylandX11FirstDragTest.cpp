#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QBuffer>
#include <QImage>
#include <QJsonObject>
#include <QtTest>

#include <utility>

using namespace nookle::e2e;

namespace {

/// The shelf saves a moment after an item has come, and later on a busy machine.
inline constexpr int timeToSave = 5000;

[[nodiscard]] QByteArray picture()
{
    QImage image(64, 48, QImage::Format_RGB32);
    image.fill(Qt::darkGreen);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

} // namespace

/// The very first drag of the very first X11 program of a session, which the shelf is older than.
class WaylandX11FirstDragTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void itArrives();

private:
    void trembleLong();
};

void WaylandX11FirstDragTest::init()
{
    WaylandDesktop::Options options;
    options.compositor = WaylandDesktop::Compositor::kwinWithX11;
    options.isBridgeRunning = false;
    QVERIFY(setUpDesktop(options));
    runPeersOnX11();
}

void WaylandX11FirstDragTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("kwin-first-drag.png"));
    tearDownDesktop();
}

// KWin tells both sides of the other one only when the pointer moves, and nothing shows when the panel has come.
void WaylandX11FirstDragTest::trembleLong()
{
    constexpr int duration = 600;
    static_cast<void>(holdsFor(
        [this] {
            hand().tremble();
            return true;
        },
        duration));
}

void WaylandX11FirstDragTest::itArrives()
{
    QVERIFY(startShelf());
    // As browsers offer an image of a page.
    QStringList arguments{ QStringLiteral("offer") };
    const QList<std::pair<QString, QByteArray>> offers{
        { QStringLiteral("text/uri-list"), "http://127.0.0.1:9/picture\r\n" },
        { QStringLiteral("application/octet-stream"), picture() },
        { QStringLiteral("text/html"), "<img src=\"http://127.0.0.1:9/picture\" alt=\"A field\">" }
    };
    for (const auto& [type, bytes] : offers) {
        const QString file = QStringLiteral("offered/") + QString(type).replace(QLatin1Char('/'), QLatin1Char('-'));
        m_desktop->writeFile(file, bytes);
        arguments << m_desktop->home(file) << type;
        if (arguments.size() == 3)
            arguments << home("result");
    }
    QVERIFY(openPeer(arguments));
    constexpr int atLeast = 1000;
    QVERIFY(holdsFor([this] { return m_shelf->isRunning(); }, atLeast));
    QVERIFY(beginDragOfPeer());
    hand().moveTo(QPoint(WaylandDesktop::displaySize.width() - 1, middle.y()));
    QVERIFY2(isTaken(0), "the shelf does not take the drag");
    trembleLong();
    hand().moveTo(QPoint(WaylandDesktop::displaySize.width() - 60, middle.y()));
    trembleLong();
    hand().release();
    QVERIFY2(waitFor([this] { return m_shelf->savedItems().size() == 1; }, timeToSave), "the drop is lost");
    const QJsonObject content = m_shelf->savedItems().constFirst().value(QLatin1String("content")).toObject();
    QVERIFY2(content.contains(QLatin1String("image")), "the image is lost");
}

QTEST_GUILESS_MAIN(WaylandX11FirstDragTest)
#include "WaylandX11FirstDragTest.moc"

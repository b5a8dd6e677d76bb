#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QBuffer>
#include <QImage>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>

using namespace nookle::e2e;

namespace {

const QString addresses = QStringLiteral("text/uri-list");
const QString plain = QStringLiteral("UTF8_STRING");
const QString png = QStringLiteral("image/png");
const QString unnamed = QStringLiteral("application/octet-stream");
const QString page = QStringLiteral("text/html");

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

/// Of more bytes than a pipe holds, however well it is packed.
[[nodiscard]] QByteArray noise()
{
    QImage image(320, 240, QImage::Format_RGB32);
    QRandomGenerator random(1);
    for (int row = 0; row < image.height(); ++row)
        random.fillRange(reinterpret_cast<quint32*>(image.scanLine(row)), image.width());
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return buffer.data();
}

inline constexpr int manyWords = 20'000;

} // namespace

/// What X11 programs drop on the shelf that is a Wayland program, one drop after the other.
class WaylandX11DropsTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everyDropArrives_data();
    void everyDropArrives();
    void aHandMayPauseOnThePinnedPanel();

private:
    [[nodiscard]] bool openSource(const QString& toolkit, const QStringList& types);
    /// Writes what the source offers next.
    void writePayload(const QStringList& types, const QString& kind, int number, bool isLarge);
    /// Drags it to the edge, and onto the panel, and lets go. Says what went wrong, if anything.
    [[nodiscard]] QString drop();
    /// Rests on the mouse for a while.
    void trembleLong();
    /// Brings the pointer to the middle, and returns once the panel has gone, unless it is pinned.
    [[nodiscard]] bool leavePanel();
    [[nodiscard]] qsizetype savedItems(const QString& kind) const;
};

void WaylandX11DropsTest::init()
{
    QVERIFY(setUpDesktop(compositor()));
    runPeersOnX11();
}

void WaylandX11DropsTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

bool WaylandX11DropsTest::openSource(const QString& toolkit, const QStringList& types)
{
    QStringList arguments;
    for (const QString& type : types) {
        arguments << home("offered/") + QString(type).replace(QLatin1Char('/'), QLatin1Char('-')) << type;
        if (arguments.size() == 2)
            arguments << home("result");
    }
    if (toolkit == QLatin1String("GTK 3"))
        return openProgram(qEnvironmentVariable("NOOKLE_GTK3_SOURCE"), arguments);
    return openPeer(QStringList{ QStringLiteral("offer") } + arguments);
}

void WaylandX11DropsTest::writePayload(const QStringList& types, const QString& kind, int number, bool isLarge)
{
    const QByteArray name = QByteArray::number(number);
    const QString file = QStringLiteral("files/%1.txt").arg(number);
    m_desktop->writeFile(file, "words");
    const QByteArray address = kind == QLatin1String("file") ? QUrl::fromLocalFile(m_desktop->home(file)).toEncoded()
                                                             : QByteArray("http://127.0.0.1:9/" + name);
    QHash<QString, QByteArray> contents{
        { addresses, address + "\r\n" },  { QStringLiteral("text/plain"), "text number " + name },
        { plain, "text number " + name }, { png, picture() },
        { unnamed, picture() },           { page, "<img src=\"http://127.0.0.1:9/\" alt=\"A field\">" }
    };
    if (isLarge) {
        contents[png] = noise();
        contents[unnamed] = contents[png];
        for (const QString& format : { plain, QStringLiteral("text/plain") })
            contents[format] = QByteArray(name + " large text ").repeated(manyWords);
        contents[page] = "<p>" + contents[plain] + "</p>";
    }
    for (const QString& type : types)
        m_desktop->writeFile(QStringLiteral("offered/") + QString(type).replace(QLatin1Char('/'), QLatin1Char('-')),
                             contents.value(type));
}

QString WaylandX11DropsTest::drop()
{
    if (!beginDragOfPeer())
        return QStringLiteral("no drag begins");
    const qsizetype taken = timesSaid("taken");
    hand().moveTo(QPoint(WaylandDesktop::displaySize.width() - 1, middle.y()));
    if (!isTaken(taken))
        return QStringLiteral("the shelf does not take the drag");
    trembleLong();
    hand().moveTo(QPoint(WaylandDesktop::displaySize.width() - 60, middle.y()));
    trembleLong();
    hand().release();
    return {};
}

// KWin tells both sides of the other one only when the pointer moves, and nothing shows when the panel has come.
void WaylandX11DropsTest::trembleLong()
{
    constexpr int duration = 600;
    static_cast<void>(holdsFor(
        [this] {
            hand().tremble();
            return true;
        },
        duration));
}

// Without pictures nothing shows that the panel has gone, but this takes it less time.
bool WaylandX11DropsTest::leavePanel()
{
    constexpr int timeToGo = 1000;
    hand().moveTo(middle);
    return holdsFor([this] { return m_shelf->isRunning(); }, timeToGo);
}

qsizetype WaylandX11DropsTest::savedItems(const QString& kind) const
{
    const auto items = m_shelf->savedItems();
    return std::count_if(items.begin(), items.end(), [&](const QJsonObject& item) {
        return item.value(QLatin1String("content")).toObject().contains(kind);
    });
}

void WaylandX11DropsTest::everyDropArrives_data()
{
    QTest::addColumn<QString>("toolkit");
    QTest::addColumn<QStringList>("types");
    QTest::addColumn<QString>("kind");
    QTest::addColumn<bool>("isPinned");
    QTest::addColumn<bool>("isLarge");
    for (const QString& toolkit : { QStringLiteral("Qt"), QStringLiteral("GTK 3") }) {
        const auto row = [&](const char* name, const QStringList& types, const char* kind, bool isPinned = false,
                             bool isLarge = false) {
            QTest::newRow(qPrintable(toolkit + QLatin1String(": ") + QLatin1String(name)))
                << toolkit << types << QString::fromLatin1(kind) << isPinned << isLarge;
        };
        const QString text = toolkit == QLatin1String("Qt") ? QStringLiteral("text/plain") : plain;
        row("a file", { addresses }, "file");
        row("a text", { text }, "text");
        row("an image", { png }, "image");
        row("a link", { addresses, text }, "link");
        row("an image of a page", { addresses, unnamed, page }, "image");
        row("a file onto the pinned panel", { addresses }, "file", true);
        row("a large image with its address", { addresses, unnamed, page }, "image", false, true);
        row("a long text with its page", { text, page }, "text", false, true);
    }
}

void WaylandX11DropsTest::everyDropArrives()
{
    QFETCH(const QString, toolkit);
    QFETCH(const QStringList, types);
    QFETCH(const QString, kind);
    QFETCH(const bool, isPinned);
    QFETCH(const bool, isLarge);
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"),
                         isPinned ? "[General]\npanelPinned=true\n" : "[General]\n");
    QVERIFY(startShelf());
    // More, to measure.
    constexpr int fewest = 2;
    const int drops = std::max(fewest, qEnvironmentVariableIntValue("NOOKLE_DROPS"));
    writePayload(types, kind, 0, isLarge);
    QVERIFY(openSource(toolkit, types));
    QStringList failures;
    for (int number = 1; number <= drops; ++number) {
        writePayload(types, kind, number, isLarge);
        QVERIFY(leavePanel());
        const qsizetype before = savedItems(kind);
        QString failure = drop();
        if (failure.isEmpty() && !waitFor([&] { return savedItems(kind) > before; }, timeToSave))
            failure = QStringLiteral("the drop is lost");
        if (!failure.isEmpty())
            failures << QStringLiteral("%1 (%2)").arg(failure).arg(number);
        hand().release();
    }
    QCOMPARE(failures.join(QLatin1String(", ")), QString());
}

void WaylandX11DropsTest::aHandMayPauseOnThePinnedPanel()
{
    m_desktop->writeFile(QStringLiteral("config/Nookle/Nookle.conf"), "[General]\npanelPinned=true\n");
    QVERIFY(startShelf());
    const QString kind = QStringLiteral("file");
    writePayload({ addresses }, kind, 0, false);
    QVERIFY(openSource(QStringLiteral("Qt"), { addresses }));
    QVERIFY(leavePanel());
    QVERIFY(beginDragOfPeer());
    const QPoint onPanel(WaylandDesktop::displaySize.width() - 60, middle.y());
    // One jump, so that the panel hears of the entry alone.
    hand().sendTo(onPanel);
    constexpr int pause = 1000;
    QVERIFY(holdsFor([this] { return m_shelf->isRunning(); }, pause));
    trembleLong();
    hand().release();
    QVERIFY(waitFor([&] { return savedItems(kind) == 1; }, timeToSave));
}

QTEST_GUILESS_MAIN(WaylandX11DropsTest)
#include "WaylandX11DropsTest.moc"

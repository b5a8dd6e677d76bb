#include "BusClient.h"
#include "PrivateDesktop.h"
#include "Shelf.h"
#include "ShelfIndex.h"
#include "IndexText.h"
#include "Waiting.h"

#include <QDateTime>
#include <QFile>
#include <QTest>

#include <memory>

using namespace nookle;
using namespace nookle::e2e;

/// The machine's clock jumps while the program runs.
class ClockTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aClockThatIsSetBackLosesNothing();
    void aClockThatIsSetForwardLeavesWhatIsPinned();

private:
    /// Puts a text, an image and a pinned text on the shelf, and starts it.
    void start(qint64 jump);
    void addText(const QString& text) const;
    void letTheClockJump() const { m_desktop->writeFile(QStringLiteral("jumped"), {}); }
    [[nodiscard]] QStringList savedNames() const;
    /// The log, without what it says of a desktop that has no tray.
    [[nodiscard]] QByteArray complaints() const;
    [[nodiscard]] bool saves(const QStringList& names) const
    {
        return waitFor([&] { return savedNames() == names; });
    }

    const ShelfItem m_image{ QUuid::createUuid(), QDateTime::currentDateTimeUtc(),
                             ImageContent{ QStringLiteral("picture.png") }, false };
    std::unique_ptr<PrivateDesktop> m_desktop;
    std::unique_ptr<BusClient> m_bus;
    std::unique_ptr<Shelf> m_shelf;
};

namespace {

inline constexpr qint64 year = qint64(365) * 24 * 60 * 60;

[[nodiscard]] ShelfItem textItem(const QString& text, bool pinned)
{
    return { QUuid::createUuid(), QDateTime::currentDateTimeUtc(), TextContent{ text }, pinned };
}

} // namespace

void ClockTest::init()
{
    QVERIFY2(qEnvironmentVariableIsSet("NOOKLE_CLOCK"), "run it with ctest, which says what is tested");
    m_desktop = PrivateDesktop::tryCreate({ QSize(1280, 800), QStringLiteral("openbox") });
    QVERIFY(m_desktop);
    m_bus = BusClient::tryConnect(m_desktop->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")));
    QVERIFY(m_bus);
    m_shelf = std::make_unique<Shelf>(*m_desktop, qEnvironmentVariable("NOOKLE_PROGRAM"));
}

void ClockTest::cleanup()
{
    m_shelf.reset();
    m_bus.reset();
    m_desktop.reset();
}

void ClockTest::start(qint64 jump)
{
    const ShelfIndex index{
        1, { textItem(QStringLiteral("text"), false), m_image, textItem(QStringLiteral("pinned"), true) }
    };
    m_desktop->writeFile(QStringLiteral("data/Nookle/index.json"), index.encode());
    m_desktop->writeFile(QStringLiteral("data/Nookle/Files/%1/picture.png").arg(uuidText(m_image.id)), "pixels");
    m_desktop->preload(qEnvironmentVariable("NOOKLE_CLOCK"));
    m_desktop->setVariable(QStringLiteral("CLOCK_JUMP"), QString::number(jump));
    m_desktop->setVariable(QStringLiteral("CLOCK_JUMPED"), m_desktop->home(QStringLiteral("jumped")));
    QVERIFY(m_shelf->start());
}

void ClockTest::addText(const QString& text) const
{
    QCOMPARE(m_bus->addToShelf({}, text).type(), QDBusMessage::ReplyMessage);
}

QStringList ClockTest::savedNames() const
{
    QFile file(m_desktop->home(QStringLiteral("data/Nookle/index.json")));
    const auto decoded = ShelfIndex::decode(file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray());
    QStringList names;
    if (const auto* index = std::get_if<ShelfIndex>(&decoded)) {
        for (const ShelfItem& item : index->items)
            names.append(item.displayName());
    }
    return names;
}

QByteArray ClockTest::complaints() const
{
    QByteArrayList lines = m_shelf->log().split('\n');
    // The minute passes for a decoder, too, that is just starting.
    lines.removeIf([](const QByteArray& line) {
        return line.startsWith("Nookle: the display: ") || line.startsWith("Nookle: no system tray")
            || line.startsWith("Nookle: the image decoder does not start");
    });
    return lines.join('\n');
}

void ClockTest::aClockThatIsSetBackLosesNothing()
{
    start(-year);
    addText(QStringLiteral("before"));
    QVERIFY(saves(
        { QStringLiteral("before"), QStringLiteral("text"), QStringLiteral("picture"), QStringLiteral("pinned") }));
    letTheClockJump();
    addText(QStringLiteral("after"));
    const QStringList all{ QStringLiteral("after"), QStringLiteral("before"), QStringLiteral("text"),
                           QStringLiteral("picture"), QStringLiteral("pinned") };
    QVERIFY(saves(all));
    QVERIFY(m_shelf->stop());
    QCOMPARE(complaints(), QByteArray());

    QVERIFY(m_shelf->start());
    addText(QStringLiteral("another"));
    QVERIFY(saves(QStringList{ QStringLiteral("another") } + all));
    QVERIFY(m_shelf->stop());
    QCOMPARE(complaints(), QByteArray());
}

// What is due every minute is done right after the jump, so that the test above is one.
void ClockTest::aClockThatIsSetForwardLeavesWhatIsPinned()
{
    start(year);
    letTheClockJump();
    addText(QStringLiteral("after"));
    QVERIFY(saves({ QStringLiteral("after"), QStringLiteral("pinned") }));
    QVERIFY(QFile::exists(m_desktop->home(QStringLiteral("data/Trash/files/picture.png"))));
    QVERIFY(m_shelf->stop());
    QCOMPARE(complaints(), QByteArray());
}

QTEST_GUILESS_MAIN(ClockTest)
#include "ClockTest.moc"

#include "HeldResources.h"

#include "BusClient.h"
#include "PrivateDesktop.h"
#include "Shelf.h"
#include "Waiting.h"

#include <QTest>

#include <memory>

using namespace nookle;
using namespace nookle::e2e;

namespace {

/// Until everything that is made once has been made.
constexpr int warmUp = 60;
/// Showings that do not wait until the panel has gone, for each that does.
constexpr int hastyShowings = 20;
constexpr int differentTexts = 30;

} // namespace

/// The program is shown and hidden again and again while other programs add to it. NOOKLE_SHOWINGS says how often.
class LongUseTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void nothingGrowsWithUse();

private:
    void toggle();
    void use(int from, int to);
    [[nodiscard]] HeldResources held() const;
    /// The rules by which the bus chooses messages for the program.
    [[nodiscard]] uint matchRules() const;

    std::unique_ptr<PrivateDesktop> m_desktop =
        PrivateDesktop::tryCreate({ QSize(1280, 800), QStringLiteral("openbox") });
    std::unique_ptr<BusClient> m_bus;
    std::unique_ptr<Shelf> m_shelf;
};

void LongUseTest::toggle()
{
    XScreen& screen = m_desktop->screen();
    for (const xcb_keysym_t key : { XScreen::control, XScreen::alt, XScreen::super, xcb_keysym_t('d') })
        screen.pressKey(key);
    for (const xcb_keysym_t key : { xcb_keysym_t('d'), XScreen::super, XScreen::alt, XScreen::control })
        screen.releaseKey(key);
}

void LongUseTest::use(int from, int to)
{
    for (int showing = from; showing < to; ++showing) {
        // One that is still on its way out may be gone at a second look.
        if (!m_shelf->panel()) {
            toggle();
            QVERIFY(waitFor([this] { return m_shelf->panel().has_value(); }));
        }
        const QString text = QStringLiteral("Text %1").arg(showing % differentTexts);
        QCOMPARE(m_bus->addToShelf({}, text).type(), QDBusMessage::ReplyMessage);
        toggle();
        if (showing % hastyShowings == 0)
            QVERIFY(waitFor([this] { return !m_shelf->panel(); }));
    }
}

HeldResources LongUseTest::held() const
{
    return HeldResources::of(m_shelf->processId(), m_desktop->display());
}

uint LongUseTest::matchRules() const
{
    return m_bus->matchRules(QStringLiteral("org.nookle.Nookle"));
}

void LongUseTest::nothingGrowsWithUse()
{
    const int showings = qEnvironmentVariable("NOOKLE_SHOWINGS", QStringLiteral("300")).toInt();
    QVERIFY(m_desktop);
    m_bus = BusClient::tryConnect(m_desktop->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")));
    QVERIFY(m_bus);
    m_shelf = std::make_unique<Shelf>(*m_desktop, qEnvironmentVariable("NOOKLE_PROGRAM"));
    QVERIFY(m_shelf->start());
    use(0, warmUp);
    // From its first save on the program holds the lock of its folder.
    QVERIFY(waitFor([this] { return !m_shelf->savedItems().isEmpty(); }));
    const HeldResources before = held();
    const uint rules = matchRules();
    use(warmUp, showings);
    // The connection of the last start that asked for the shelf may still be open for a moment.
    HeldResources after = held();
    static_cast<void>(waitFor([&] {
        after = held();
        return after.descriptors <= before.descriptors;
    }));
    qInfo() << "after the first:" << before << rules << "rules\nat the end:" << after << matchRules() << "rules";
    QVERIFY(rules > 0);
    QCOMPARE(matchRules(), rules);
    QVERIFY(before.xResources > 0);
    QVERIFY(after.xResources <= before.xResources);
    QVERIFY(after.descriptors <= before.descriptors);
    QVERIFY(after.watches <= before.watches);
    QVERIFY(!after.hasMoreMemoryThan(before));
    QVERIFY(m_shelf->stop());
}

QTEST_GUILESS_MAIN(LongUseTest)
#include "LongUseTest.moc"

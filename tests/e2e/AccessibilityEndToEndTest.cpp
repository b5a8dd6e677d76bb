#include "AssistiveClient.h"
#include "PrivateDesktop.h"
#include "Shelf.h"
#include "Waiting.h"

#include <QDBusMessage>
#include <QTest>

#include <memory>

using namespace nookle::e2e;

/// Notes which things are said to be selected or not.
class SelectionListener : public QObject {
    Q_OBJECT

public:
    QStringList heard;

public Q_SLOTS:
    void stateChanged(const QDBusMessage& signal)
    {
        if (signal.arguments().value(0).toString() == QLatin1String("selected"))
            heard.append(QString::number(signal.arguments().value(1).toInt()) + signal.path());
    }
};

class AccessibilityEndToEndTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aScreenReaderFindsTheItemsOfTheShelf();
    void anItemIsPinnedAndRemovedByItsActions();
    void aScreenReaderHearsWhatIsSelected();
#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)
    void aScreenReaderSelectsItems();
#endif

private:
    [[nodiscard]] std::optional<AssistiveClient::Node> list() const;
    [[nodiscard]] std::vector<AssistiveClient::Node> items() const;

    std::unique_ptr<PrivateDesktop> m_desktop;
    std::unique_ptr<AssistiveClient> m_client;
    std::unique_ptr<Shelf> m_shelf;
};

namespace {

// Two texts, the second of them pinned.
const QByteArray savedIndex = R"({
  "version": 1,
  "items": [
    { "id": "0D4D5C5F-3BA6-4E55-9D0F-6B9A6C5D1A01", "createdAt": "2126-01-01T00:00:00Z", "pinned": false,
      "content": { "text": { "_0": "First words" } } },
    { "id": "0D4D5C5F-3BA6-4E55-9D0F-6B9A6C5D1A02", "createdAt": "2126-01-01T00:00:00Z", "pinned": true,
      "content": { "text": { "_0": "Second words" } } }
  ]
})";

} // namespace

void AccessibilityEndToEndTest::init()
{
    QVERIFY2(qEnvironmentVariableIsSet("NOOKLE_PROGRAM"), "run it with ctest, which says which program is tested");
    m_desktop = PrivateDesktop::tryCreate({ QSize(1200, 700), QStringLiteral("openbox"), false });
    QVERIFY(m_desktop);
    m_client = AssistiveClient::tryCreate(m_desktop->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")));
    QVERIFY2(m_client, "the desktop has no accessibility bus");
    m_desktop->writeFile(QStringLiteral("data/Nookle/index.json"), savedIndex);
    m_shelf = std::make_unique<Shelf>(*m_desktop, qEnvironmentVariable("NOOKLE_PROGRAM"));
    QVERIFY(m_shelf->start());
    QCOMPARE(m_shelf->startAgain(), 0);
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(1200); }));
    QVERIFY2(waitFor([this] { return items().size() == 2; }), "the items do not appear");
}

void AccessibilityEndToEndTest::cleanup()
{
    m_shelf.reset();
    m_client.reset();
    m_desktop.reset();
}

std::optional<AssistiveClient::Node> AccessibilityEndToEndTest::list() const
{
    for (const AssistiveClient::Node& program : m_client->programs()) {
        if (auto found = m_client->find(program, QStringLiteral("list")))
            return found;
    }
    return std::nullopt;
}

std::vector<AssistiveClient::Node> AccessibilityEndToEndTest::items() const
{
    const auto found = list();
    return found ? m_client->children(*found) : std::vector<AssistiveClient::Node>();
}

void AccessibilityEndToEndTest::aScreenReaderFindsTheItemsOfTheShelf()
{
    QCOMPARE(m_client->name(*list()), QStringLiteral("Shelf"));
    const auto tiles = items();
    QCOMPARE(m_client->role(tiles[0]), QStringLiteral("list item"));
    QCOMPARE(m_client->name(tiles[0]), QStringLiteral("First words"));
    QCOMPARE(m_client->description(tiles[0]), QStringLiteral("Text"));
    QCOMPARE(m_client->name(tiles[1]), QStringLiteral("Second words"));
    QCOMPARE(m_client->description(tiles[1]), QStringLiteral("Text, pinned"));
}

void AccessibilityEndToEndTest::anItemIsPinnedAndRemovedByItsActions()
{
    const auto actionOf = [this](std::size_t item, const char* name) {
        return static_cast<int>(m_client->actions(items()[item]).indexOf(QString::fromLatin1(name)));
    };
    QVERIFY(actionOf(0, "Copy") >= 0);
    m_client->doAction(items()[0], actionOf(0, "Pin"));
    QVERIFY(waitFor([&] { return actionOf(0, "Unpin") >= 0; }));
    m_client->doAction(items()[1], actionOf(1, "Remove"));
    QVERIFY(waitFor([this] { return items().size() == 1; }));
    QVERIFY(waitFor([this] { return m_shelf->savedItems().size() == 1; }));
    QVERIFY(m_shelf->savedItems().first().value(QLatin1String("pinned")).toBool());
}

void AccessibilityEndToEndTest::aScreenReaderHearsWhatIsSelected()
{
    QVERIFY(m_client->isMultiSelectable(*list()));
    SelectionListener listener;
    QVERIFY(m_client->listenForStates(listener, SLOT(stateChanged(QDBusMessage))));
    const auto tiles = items();
    XScreen& screen = m_desktop->screen();
    screen.moveTo(m_shelf->firstTile());
    screen.pressKey(XScreen::control);
    screen.press();
    screen.release();
    QVERIFY(waitFor([&] { return m_client->isSelected(tiles[0]); }));
    QVERIFY(!m_client->isSelected(tiles[1]));
    screen.moveTo(m_shelf->firstTile() + QPoint(0, 86));
    screen.press();
    screen.release();
    screen.releaseKey(XScreen::control);
    QVERIFY(waitFor([&] { return m_client->isSelected(tiles[1]); }));
    QVERIFY(m_client->isSelected(tiles[0]));
    const QStringList expected{ QLatin1Char('1') + tiles[0].path.path(), QLatin1Char('1') + tiles[1].path.path() };
    QVERIFY2(waitFor([&] {
                 QCoreApplication::processEvents();
                 return listener.heard == expected;
             }),
             qPrintable(listener.heard.join(QLatin1Char(' '))));
}

#if QT_VERSION >= QT_VERSION_CHECK(6, 5, 0)

void AccessibilityEndToEndTest::aScreenReaderSelectsItems()
{
    const auto tiles = items();
    QCOMPARE(m_client->selectedChildren(*list()), 0);
    QVERIFY(m_client->selectChild(*list(), 1));
    QVERIFY(m_client->isSelected(tiles[1]));
    QVERIFY(m_client->selectChild(*list(), 0));
    QVERIFY(m_client->isSelected(tiles[0]));
    QCOMPARE(m_client->selectedChildren(*list()), 2);
    QVERIFY(m_client->actions(tiles[0]).contains(QStringLiteral("Remove 2 Items")));
    QVERIFY(m_client->clearSelection(*list()));
    QCOMPARE(m_client->selectedChildren(*list()), 0);
    QVERIFY(!m_client->isSelected(tiles[0]));
}

#endif

QTEST_GUILESS_MAIN(AccessibilityEndToEndTest)
#include "AccessibilityEndToEndTest.moc"

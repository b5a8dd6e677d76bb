#include "ShelfDesktop.h"
#include "Waiting.h"

#include <QColor>
#include <QDir>
#include <QFile>
#include <QtTest>

using namespace nookle::e2e;

/// Several items at once, with the keys and the mouse of a user.
class SelectionEndToEndTest : public QObject, private ShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void clicksWithControlSelectWhatIsCopiedAndRemovedTogether();
    void arrowsWithShiftSelectWhatIsRemovedTogether();
    void escapeEndsTheSelectionBeforeItHidesTheShelf();
    void aRubberBandSelectsAndKeepsTheShelfOnTheScreen();

private:
    static constexpr xcb_keysym_t shift = 0xffe1;
    static constexpr xcb_keysym_t down = 0xff54;
    static constexpr xcb_keysym_t escape = 0xff1b;
    static constexpr xcb_keysym_t deletion = 0xffff;
    /// From one tile to the next, as long as their names have one line; roughly.
    static constexpr int tilePitch = 86;

    [[nodiscard]] QPoint tile(int row) const { return m_shelf->firstTile() + QPoint(0, row * tilePitch); }
    /// A place beside the tiles, in the header.
    [[nodiscard]] QPoint besideTheTiles() const { return m_shelf->panel()->frame.topLeft() + QPoint(20, 14); }
    /// A click that chooses nothing gives the shelf the keyboard; not before the toolkit has noticed that another
    /// window took it.
    [[nodiscard]] bool takeKeyboard()
    {
        return waitFor([this] {
            screen().moveTo(besideTheTiles());
            screen().press();
            screen().release();
            return screen().focus() == m_shelf->panel()->id;
        });
    }
    void clickWithControl(int row)
    {
        screen().moveTo(tile(row));
        screen().pressKey(XScreen::control);
        screen().press();
        screen().release();
        screen().releaseKey(XScreen::control);
    }
    void key(xcb_keysym_t symbol, xcb_keysym_t modifier = 0)
    {
        if (modifier)
            screen().pressKey(modifier);
        screen().pressKey(symbol);
        screen().releaseKey(symbol);
        if (modifier)
            screen().releaseKey(modifier);
    }
    /// Whether the shelf shows the tile on a slightly coloured ground; the panel is grey, and so is a tile under the
    /// pointer.
    [[nodiscard]] bool looksSelected(int row) const
    {
        const QPoint ground(m_shelf->panel()->frame.left() + 12, tile(row).y());
        return m_desktop->screen().picture(QRect(ground, QSize(1, 1))).pixelColor(0, 0).saturation() > 15;
    }
    /// Whether these rows look selected, of three.
    [[nodiscard]] bool theseLookSelected(const QList<int>& rows) const
    {
        for (int row = 0; row < 3; ++row) {
            if (looksSelected(row) != rows.contains(row))
                return false;
        }
        return true;
    }
    [[nodiscard]] bool savedAre(const QStringList& names)
    {
        return waitFor([&] { return m_shelf->savedFileNames() == names; });
    }
    /// What another program gets from the clipboard.
    [[nodiscard]] QByteArray pasted(const QString& type);
};

void SelectionEndToEndTest::init()
{
    QVERIFY2(qEnvironmentVariableIsSet("NOOKLE_PROGRAM"), "run it with ctest, which says which program is tested");
    QVERIFY(setUpDesktop({ QSize(1200, 700), QStringLiteral("openbox"), false }));
    QStringList files;
    for (const char* name : { "a", "b", "c" }) {
        m_desktop->writeFile(QStringLiteral("files/") + QLatin1String(name), "words");
        files.append(m_desktop->home(QStringLiteral("files/") + QLatin1String(name)));
    }
    QVERIFY(m_shelf->start());
    QCOMPARE(m_shelf->startAgain(files), 0);
    QVERIFY(savedAre({ QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c") }));
    QCOMPARE(m_shelf->startAgain(), 0);
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(1200); }));
}

void SelectionEndToEndTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("selection-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

QByteArray SelectionEndToEndTest::pasted(const QString& type)
{
    const QString path = m_desktop->home(QStringLiteral("pasted"));
    QFile::remove(path);
    if (!openPeer({ QStringLiteral("paste"), path, type }))
        return "no window";
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("no file");
}

void SelectionEndToEndTest::clicksWithControlSelectWhatIsCopiedAndRemovedTogether()
{
    QVERIFY(theseLookSelected({}));
    clickWithControl(0);
    clickWithControl(2);
    QVERIFY(waitFor([this] { return theseLookSelected({ 0, 2 }); }));
    key('c', XScreen::control);
    QVERIFY(waitFor([this] { return screen().hasOwner("CLIPBOARD"); }));
    const QByteArray folder = QUrl::fromLocalFile(m_desktop->home(QStringLiteral("files"))).toEncoded();
    QCOMPARE(pasted(QStringLiteral("text/uri-list")), folder + "/a\r\n" + folder + "/c\r\n");
    QVERIFY(takeKeyboard());
    clickWithControl(0);
    clickWithControl(1);
    clickWithControl(2);
    clickWithControl(2);
    QVERIFY(waitFor([this] { return theseLookSelected({ 0, 1 }); }));
    key(deletion);
    QVERIFY(savedAre({ QStringLiteral("c") }));
    key('z', XScreen::control);
    QVERIFY(savedAre({ QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c") }));
}

void SelectionEndToEndTest::arrowsWithShiftSelectWhatIsRemovedTogether()
{
    QVERIFY(takeKeyboard());
    key(down);
    key(down);
    key(down, shift);
    QVERIFY(waitFor([this] { return theseLookSelected({ 1, 2 }); }));
    key(deletion);
    QVERIFY(savedAre({ QStringLiteral("a") }));
    key('z', XScreen::control);
    QVERIFY(savedAre({ QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c") }));
}

void SelectionEndToEndTest::escapeEndsTheSelectionBeforeItHidesTheShelf()
{
    QVERIFY(takeKeyboard());
    key('a', XScreen::control);
    QVERIFY(waitFor([this] { return theseLookSelected({ 0, 1, 2 }); }));
    key(escape);
    QVERIFY(waitFor([this] { return theseLookSelected({}); }));
    QVERIFY(!panelIsGone());
    key(escape);
    QVERIFY(waitFor([this] { return panelIsGone(); }));
}

void SelectionEndToEndTest::aRubberBandSelectsAndKeepsTheShelfOnTheScreen()
{
    screen().moveTo(besideTheTiles());
    screen().press();
    screen().moveTo(tile(1));
    QVERIFY(waitFor([this] { return m_shelf->panel().has_value() && looksSelected(0); }));
    screen().moveTo(tile(1) - QPoint(300, 0));
    QVERIFY2(holdsFor([this] { return !panelIsGone(); }, 1500), "the panel goes while a rubber band is drawn");
    screen().release();
    QVERIFY(waitFor([this] { return panelIsGone(); }));
    QCOMPARE(m_shelf->startAgain(), 0);
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(1200); }));
    QVERIFY2(waitFor([this] { return theseLookSelected({}); }), "the selection does not end with the panel");
}

QTEST_GUILESS_MAIN(SelectionEndToEndTest)
#include "SelectionEndToEndTest.moc"

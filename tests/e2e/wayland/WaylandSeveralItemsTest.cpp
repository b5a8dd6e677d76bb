#include "Nautilus.h"
#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QTest>
#include <QUrl>

using namespace nookle::e2e;

/// Several items at once, where a compositor stands between the shelf and its user: it moves the picture under the
/// pointer and says which keys are held.
class WaylandSeveralItemsTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void allArriveInOtherPrograms_data();
    void allArriveInOtherPrograms();
    void clicksWithControlChooseWhatIsDragged();
    void aClickWithShiftChoosesARange();
    void aRubberBandChoosesWhatIsDragged();
    void thePictureUnderThePointerSaysHowMany();
    void allFilesGoIntoAFolderOfNautilus();

private:
    /// Three files, of which the first one is on top of the shelf.
    [[nodiscard]] bool putFilesOnShelf();
    [[nodiscard]] bool openTarget();
    [[nodiscard]] QPoint tile(int row) const { return firstTile() + QPoint(0, row * tileDistance); }
    [[nodiscard]] QByteArray addresses(const QByteArrayList& names) const;
    [[nodiscard]] bool arrive(const QByteArrayList& names) const;
    void keepPicture(const QString& name) const;

    static constexpr int tileDistance = 86;
};

void WaylandSeveralItemsTest::init()
{
    QVERIFY(setUpDesktop(compositor()));
    QVERIFY(startShelf());
}

void WaylandSeveralItemsTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("wayland-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

bool WaylandSeveralItemsTest::putFilesOnShelf()
{
    QStringList paths;
    for (const char* name : { "one.txt", "two.txt", "three.txt" }) {
        m_desktop->writeFile(QStringLiteral("files/") + QLatin1String(name), name);
        paths.append(m_desktop->home(QStringLiteral("files/") + QLatin1String(name)));
    }
    return m_shelf->startAgain(paths) == 0 && waitFor([this] { return m_shelf->savedItems().size() == 3; });
}

bool WaylandSeveralItemsTest::openTarget()
{
    return openPeer({ QStringLiteral("take"), QStringLiteral("text/uri-list"), home("received") });
}

QByteArray WaylandSeveralItemsTest::addresses(const QByteArrayList& names) const
{
    QByteArrayList addresses;
    for (const QByteArray& name : names)
        addresses.append(QUrl::fromLocalFile(home("files/") + QString::fromUtf8(name)).toEncoded());
    return addresses.join('\n');
}

bool WaylandSeveralItemsTest::arrive(const QByteArrayList& names) const
{
    return waitFor([&] { return content("received").replace('\r', "").trimmed() == addresses(names); });
}

void WaylandSeveralItemsTest::keepPicture(const QString& name) const
{
    const QString folder = qEnvironmentVariable("NOOKLE_PICTURES");
    if (!folder.isEmpty())
        m_desktop->picture(QRect(QPoint(), WaylandDesktop::displaySize)).save(folder + QLatin1Char('/') + name);
}

void WaylandSeveralItemsTest::allArriveInOtherPrograms_data()
{
    QTest::addColumn<bool>("isGtk");
    QTest::newRow("Qt") << false;
    QTest::newRow("GTK 4") << true;
}

void WaylandSeveralItemsTest::allArriveInOtherPrograms()
{
    QFETCH(const bool, isGtk);
    QVERIFY(putFilesOnShelf());
    if (isGtk)
        openGtkTarget(QStringLiteral("files"));
    else
        QVERIFY(openTarget());
    QVERIFY(showShelf());
    QVERIFY(dragToPeer(handle()));
    QVERIFY2(arrive({ "one.txt", "two.txt", "three.txt" }), content("received").constData());
}

void WaylandSeveralItemsTest::clicksWithControlChooseWhatIsDragged()
{
    QVERIFY(putFilesOnShelf());
    QVERIFY(openTarget());
    QVERIFY(showShelf());
    hand().moveTo(tile(2));
    hand().clickWith(Hand::Key::control);
    hand().moveTo(tile(0));
    hand().clickWith(Hand::Key::control);
    keepPicture(QStringLiteral("several-control.png"));
    QVERIFY(dragToPeer(tile(0)));
    QVERIFY2(arrive({ "one.txt", "three.txt" }), content("received").constData());
}

void WaylandSeveralItemsTest::aClickWithShiftChoosesARange()
{
    QVERIFY(putFilesOnShelf());
    QVERIFY(openTarget());
    QVERIFY(showShelf());
    hand().moveTo(tile(2));
    hand().clickWith(Hand::Key::control);
    hand().moveTo(tile(0));
    hand().clickWith(Hand::Key::shift);
    QVERIFY(dragToPeer(tile(1)));
    QVERIFY2(arrive({ "one.txt", "two.txt", "three.txt" }), content("received").constData());
}

void WaylandSeveralItemsTest::aRubberBandChoosesWhatIsDragged()
{
    QVERIFY(putFilesOnShelf());
    QVERIFY(openTarget());
    QVERIFY(showShelf());
    // It begins below the tiles.
    hand().moveTo(tile(4));
    hand().press();
    hand().moveTo(tile(1));
    keepPicture(QStringLiteral("several-band.png"));
    hand().release();
    QVERIFY(dragToPeer(tile(1)));
    QVERIFY2(arrive({ "two.txt", "three.txt" }), content("received").constData());
}

void WaylandSeveralItemsTest::thePictureUnderThePointerSaysHowMany()
{
    // The number is at the lower right of the picture, which is 76 points wide; that of one item is 52.
    constexpr QRect number(28, 20, 8, 8);
    QVERIFY(putFilesOnShelf());
    QVERIFY(openTarget());
    const QImage before = m_desktop->picture(number.translated(middle));
    QVERIFY(showShelf());
    const auto numberShows = [&](const QPoint& from) {
        hand().moveTo(from);
        hand().press();
        hand().moveTo(middle);
        return waitFor([&] {
            hand().moveTo(middle + QPoint(12, 0));
            hand().moveTo(middle);
            return m_desktop->picture(number.translated(middle)) != before;
        });
    };
    QVERIFY(numberShows(handle()));
    keepPicture(QStringLiteral("several-fan.png"));
    hand().release();
    QVERIFY(arrive({ "one.txt", "two.txt", "three.txt" }));
}

void WaylandSeveralItemsTest::allFilesGoIntoAFolderOfNautilus()
{
    QVERIFY(putFilesOnShelf());
    m_desktop->writeFile(QStringLiteral("shown/a folder/other.txt"), "other words");
    m_desktop->writeFile(QStringLiteral("shown/b.txt"), "more words");
    const auto nautilus = Nautilus::tryOpen(*m_desktop, home("shown"));
    QVERIFY(nautilus);
    QVERIFY(showShelf());
    hand().moveTo(handle());
    hand().press();
    hand().moveTo(nautilus->firstIcon());
    QVERIFY(waitFor([&] {
        hand().moveTo(nautilus->firstIcon() + QPoint(5, 0));
        hand().moveTo(nautilus->firstIcon());
        return nautilus->firstTakesDrop(*m_desktop);
    }));
    keepPicture(QStringLiteral("several-nautilus.png"));
    hand().release();
    for (const char* name : { "one.txt", "two.txt", "three.txt" }) {
        const QByteArray arrived = QByteArray("shown/a folder/") + name;
        QVERIFY2(waitFor([&] { return content(arrived.constData()) == name; }), name);
    }
    QCOMPARE(m_shelf->savedItems().size(), 3);
}

QTEST_GUILESS_MAIN(WaylandSeveralItemsTest)
#include "WaylandSeveralItemsTest.moc"

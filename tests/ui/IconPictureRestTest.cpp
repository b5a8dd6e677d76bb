#include "IconPictureRest.h"

#include "FakeMainQueue.h"

#include <QPixmap>
#include <QPixmapCache>
#include <QTest>
#include <QWidget>

using namespace nookle;

namespace {

const QString key = QStringLiteral("a picture");
inline constexpr double shortly = 0.1;

[[nodiscard]] bool isKept()
{
    return QPixmapCache::find(key, nullptr);
}

} // namespace

class IconPictureRestTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void picturesAreKeptWhileTheyMayBeShown();
    void picturesOfAHiddenShelfGoAtOnce();
    void aShelfThatComesBackKeepsThem();

private:
    FakeMainQueue m_queue;
};

void IconPictureRestTest::init()
{
    QPixmap picture(8, 8);
    picture.fill(Qt::red);
    QVERIFY(QPixmapCache::insert(key, picture));
}

void IconPictureRestTest::picturesAreKeptWhileTheyMayBeShown()
{
    QWidget shelf;
    const auto* rest = new IconPictureRest(shelf, m_queue);
    QCOMPARE(rest->parent(), &shelf);
    shelf.show();
    m_queue.advance(10 * IconPictureRest::timeToKeep);
    QVERIFY(isKept());
}

void IconPictureRestTest::picturesOfAHiddenShelfGoAtOnce()
{
    QWidget shelf;
    new IconPictureRest(shelf, m_queue);
    shelf.show();
    shelf.hide();
    m_queue.advance(IconPictureRest::timeToKeep - shortly);
    QVERIFY(isKept());
    m_queue.advance(shortly);
    QVERIFY(!isKept());
}

void IconPictureRestTest::aShelfThatComesBackKeepsThem()
{
    QWidget shelf;
    new IconPictureRest(shelf, m_queue);
    shelf.show();
    shelf.hide();
    m_queue.advance(IconPictureRest::timeToKeep / 2);
    shelf.show();
    m_queue.advance(10 * IconPictureRest::timeToKeep);
    QVERIFY(isKept());
}

QTEST_MAIN(IconPictureRestTest)
#include "IconPictureRestTest.moc"

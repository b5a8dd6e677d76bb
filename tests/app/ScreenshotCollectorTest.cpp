#include "ScreenshotCollector.h"

#include "AppSettings.h"
#include "FakeUserDefaults.h"
#include "StoreFixture.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <memory>

using namespace nookle;

class ScreenshotCollectorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aScreenshotIsIgnoredWhileCollectingIsOff();
    void aScreenshotIsAddedWhereItIs();
    void aScreenshotIsTakenOver();
    void aLinkToAScreenshotIsNeverTakenOver();
    void theNewestScreenshotIsOnTop_data();
    void theNewestScreenshotIsOnTop();
    void manyAreAddedInOneChange();
    void manyAreTakenOverAFewAtATime();

private:
    [[nodiscard]] QUrl makeFile(const QString& name)
    {
        m_fixture->write(name, "picture");
        return m_fixture->urlOf(name);
    }

    std::unique_ptr<StoreFixture> m_fixture;
    std::unique_ptr<ShelfStore> m_store;
    FakeUserDefaults m_defaults;
    std::unique_ptr<AppSettings> m_settings;
    std::unique_ptr<ScreenshotCollector> m_collector;
    int m_collected = 0;
};

void ScreenshotCollectorTest::init()
{
    m_fixture = std::make_unique<StoreFixture>();
    m_store = m_fixture->open();
    m_settings = std::make_unique<AppSettings>(m_defaults);
    m_settings->setCollectScreenshots(true);
    m_settings->setMoveScreenshots(false);
    m_collector = std::make_unique<ScreenshotCollector>(*m_settings, *m_store, m_fixture->queue);
    m_collected = 0;
    m_collector->onCollected = [this] { ++m_collected; };
}

void ScreenshotCollectorTest::cleanup()
{
    m_collector.reset();
    m_store.reset();
    m_fixture.reset();
}

void ScreenshotCollectorTest::aScreenshotIsIgnoredWhileCollectingIsOff()
{
    m_settings->setCollectScreenshots(false);
    m_collector->collect(makeFile(QStringLiteral("a.png")));
    m_fixture->queue.runPosted();
    QVERIFY(m_store->items().isEmpty());
    QCOMPARE(m_collected, 0);
}

void ScreenshotCollectorTest::aScreenshotIsAddedWhereItIs()
{
    const QUrl file = makeFile(QStringLiteral("a.png"));
    m_collector->collect(file);
    m_fixture->queue.runPosted();
    QCOMPARE(m_store->items().size(), 1);
    QCOMPARE(m_store->localURL(m_store->items().first()), file);
    QCOMPARE(m_collected, 1);
}

void ScreenshotCollectorTest::aScreenshotIsTakenOver()
{
    m_settings->setMoveScreenshots(true);
    const QUrl file = makeFile(QStringLiteral("a.png"));
    m_collector->collect(file);
    m_fixture->queue.runPosted();
    QCOMPARE(m_store->items().size(), 1);
    QVERIFY(!QFile::exists(m_fixture->path(QStringLiteral("a.png"))));
    QCOMPARE(m_collected, 1);
}

void ScreenshotCollectorTest::aLinkToAScreenshotIsNeverTakenOver()
{
    m_settings->setMoveScreenshots(true);
    const QUrl target = makeFile(QStringLiteral("target.png"));
    const QUrl link = m_fixture->urlOf(QStringLiteral("link.png"));
    QVERIFY(QFile::link(target.toLocalFile(), link.toLocalFile()));
    m_collector->collect(link);
    m_fixture->queue.runPosted();
    QCOMPARE(m_store->items().size(), 1);
    QVERIFY(std::holds_alternative<FileContent>(m_store->items().constFirst().content));
    QCOMPARE(m_store->fileURLs().value(m_store->items().constFirst().id), link);
    QVERIFY(QFile::exists(link.toLocalFile()));
    QCOMPARE(m_collected, 1);
}

void ScreenshotCollectorTest::theNewestScreenshotIsOnTop_data()
{
    QTest::addColumn<bool>("moves");
    QTest::newRow("added") << false;
    QTest::newRow("taken over") << true;
}

void ScreenshotCollectorTest::theNewestScreenshotIsOnTop()
{
    QFETCH(const bool, moves);
    m_settings->setMoveScreenshots(moves);
    QStringList names;
    for (int index = 0; index < 25; ++index) {
        const QString name = QString::number(index);
        m_collector->collect(makeFile(name));
        names.prepend(name);
    }
    m_fixture->queue.runPosted();
    QCOMPARE(StoreFixture::names(*m_store), names);
}

void ScreenshotCollectorTest::manyAreAddedInOneChange()
{
    const QSignalSpy changes(m_store.get(), &ShelfStore::itemsChanged);
    for (int index = 0; index < 100; ++index)
        m_collector->collect(StoreFixture::file("/a.png"));
    m_fixture->queue.runPosted();
    QCOMPARE(changes.size(), 1);
    QCOMPARE(m_collected, 1);
}

void ScreenshotCollectorTest::manyAreTakenOverAFewAtATime()
{
    m_settings->setMoveScreenshots(true);
    for (int index = 0; index < 25; ++index)
        m_collector->collect(makeFile(QStringLiteral("%1.png").arg(index)));
    qsizetype mostAtOnce = 0;
    qsizetype before = 0;
    m_collector->onCollected = [&] {
        mostAtOnce = std::max(mostAtOnce, m_store->items().size() - before);
        before = m_store->items().size();
    };
    m_fixture->queue.runPosted();
    QCOMPARE(m_store->items().size(), 25);
    QCOMPARE(mostAtOnce, 10);
}

QTEST_GUILESS_MAIN(ScreenshotCollectorTest)
#include "ScreenshotCollectorTest.moc"

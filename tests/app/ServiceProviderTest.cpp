#include "ServiceProvider.h"

#include "StoreFixture.h"

#include <QSignalSpy>
#include <QTest>

#include <memory>
#include <variant>

using namespace nookle;

class ServiceProviderTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void twoFilesAreAddedAtOnceAndTheShelfIsShownOnce();
    void aPasteboardWithOnlyAnImageSaysThatNothingWasFound();
    void filesWinOverText();
    void textIsAddedWhereThereAreNoFiles();
    void aWebAddressBecomesALink();
    void severalPagesAreAllAdded();
    void filesAndPagesThatAreNamedAreAllAdded();
    void aListOfNothingSaysThatNothingWasFound();

private:
    std::unique_ptr<StoreFixture> m_fixture;
    std::unique_ptr<ShelfStore> m_store;
    std::unique_ptr<ServiceProvider> m_provider;
    int m_shown = 0;
};

void ServiceProviderTest::init()
{
    m_fixture = std::make_unique<StoreFixture>();
    m_store = m_fixture->open();
    m_shown = 0;
    m_provider = std::make_unique<ServiceProvider>(*m_store, [this] { ++m_shown; });
}

void ServiceProviderTest::cleanup()
{
    m_provider.reset();
    m_store.reset();
    m_fixture.reset();
}

void ServiceProviderTest::twoFilesAreAddedAtOnceAndTheShelfIsShownOnce()
{
    const QSignalSpy changes(m_store.get(), &ShelfStore::itemsChanged);
    QVERIFY(!m_provider->addToShelf({ { StoreFixture::file("/a"), StoreFixture::file("/b") }, {} }));
    QCOMPARE(StoreFixture::names(*m_store), (QStringList{ QStringLiteral("a"), QStringLiteral("b") }));
    QCOMPARE(changes.size(), 1);
    QCOMPARE(m_shown, 1);
}

void ServiceProviderTest::aPasteboardWithOnlyAnImageSaysThatNothingWasFound()
{
    const auto failure = m_provider->addToShelf({});
    QVERIFY(failure);
    QCOMPARE(failure->description, QStringLiteral("Nothing found that can be added to the shelf."));
    QVERIFY(m_store->items().isEmpty());
    QCOMPARE(m_shown, 0);
}

void ServiceProviderTest::filesWinOverText()
{
    QVERIFY(!m_provider->addToShelf({ { StoreFixture::file("/a") }, { QStringLiteral("/a") } }));
    QCOMPARE(StoreFixture::names(*m_store), QStringList{ QStringLiteral("a") });
}

void ServiceProviderTest::textIsAddedWhereThereAreNoFiles()
{
    QVERIFY(!m_provider->addToShelf({ {}, { QStringLiteral("some words") } }));
    QCOMPARE(m_store->items().size(), 1);
    QVERIFY(std::holds_alternative<TextContent>(m_store->items().first().content));
    QCOMPARE(m_shown, 1);
}

void ServiceProviderTest::aWebAddressBecomesALink()
{
    QVERIFY(!m_provider->addToShelf({ {}, { QStringLiteral("https://example.com/") } }));
    QVERIFY(std::holds_alternative<LinkContent>(m_store->items().first().content));
}

void ServiceProviderTest::severalPagesAreAllAdded()
{
    const QSignalSpy changes(m_store.get(), &ShelfStore::itemsChanged);
    const ServicePasteboard pages =
        servicePasteboard({ QStringLiteral("https://one.example/"), QStringLiteral("https://two.example/") }, {});
    QVERIFY(!m_provider->addToShelf(pages));
    QCOMPARE(StoreFixture::names(*m_store).join(QLatin1Char(' ')), QStringLiteral("one.example two.example"));
    QCOMPARE(changes.size(), 1);
    QCOMPARE(m_shown, 1);
}

void ServiceProviderTest::filesAndPagesThatAreNamedAreAllAdded()
{
    const AddressList list =
        addressList({ QStringLiteral("file:///a"), QStringLiteral("https://one.example/"), QStringLiteral("file:///b"),
                      QStringLiteral("https://two.example/"), QStringLiteral("file://elsewhere/c") });
    QVERIFY(!m_provider->open(list));
    QCOMPARE(StoreFixture::names(*m_store).join(QLatin1Char(' ')), QStringLiteral("a b one.example two.example"));
    QVERIFY(std::holds_alternative<LinkContent>(m_store->items().last().content));
    QCOMPARE(m_shown, 1);
}

void ServiceProviderTest::aListOfNothingSaysThatNothingWasFound()
{
    const auto failure = m_provider->open(addressList({ QStringLiteral("file://elsewhere/c"), QString() }));
    QVERIFY(failure);
    QCOMPARE(failure->description, QStringLiteral("Nothing found that can be added to the shelf."));
    QCOMPARE(m_shown, 0);
}

QTEST_GUILESS_MAIN(ServiceProviderTest)
#include "ServiceProviderTest.moc"

#include "NameSearch.h"

#include <QStringList>
#include <QTest>

using namespace nookle;

class NameSearchTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        m_search = NameSearch();
        m_names = QStringLiteral("Banana,apple,Avocado,bread,apricot").split(QLatin1Char(','));
    }

    void lettersNarrowTheSearch();
    void aPauseBeginsANewSearch();
    void oneLetterAgainGoesToTheNextName();
    void theSearchGoesOnAtTheTop();
    void whatIsNotThereFindsNothing();
    void aSearchIsUnderWayUntilAPause();

private:
    [[nodiscard]] int find(const char* typed, quint64 time, std::optional<std::size_t> current)
    {
        const auto row = m_search.find(QString::fromLatin1(typed), time, current, std::size_t(m_names.size()),
                                       [this](std::size_t each) { return m_names.at(qsizetype(each)); });
        return row ? static_cast<int>(*row) : -1;
    }

    NameSearch m_search;
    QStringList m_names;
};

void NameSearchTest::lettersNarrowTheSearch()
{
    QCOMPARE(find("A", 1000, 0), 1);
    QCOMPARE(find("p", 1100, 1), 1);
    QCOMPARE(find("r", 2000, 1), 4);
    QCOMPARE(find("z", 2100, 4), -1);
}

void NameSearchTest::aPauseBeginsANewSearch()
{
    QCOMPARE(find("a", 1000, {}), 1);
    QCOMPARE(find("b", 2001, 1), 3);
    QCOMPARE(find("a", 3001, 3), 0);
    QCOMPARE(find("b", 4002, 0), 3);
}

void NameSearchTest::oneLetterAgainGoesToTheNextName()
{
    QCOMPARE(find("a", 1000, {}), 1);
    QCOMPARE(find("a", 1100, 1), 2);
    QCOMPARE(find("A", 1200, 2), 4);
    QCOMPARE(find("a", 1300, 4), 1);
}

void NameSearchTest::theSearchGoesOnAtTheTop()
{
    QCOMPARE(find("b", 1000, 4), 0);
    QCOMPARE(find("b", 3000, 3), 0);
}

void NameSearchTest::whatIsNotThereFindsNothing()
{
    QCOMPARE(find("x", 1000, 1), -1);
    m_names.clear();
    QCOMPARE(find("a", 5000, {}), -1);
}

void NameSearchTest::aSearchIsUnderWayUntilAPause()
{
    QVERIFY(!m_search.isUnderWay(500));
    QCOMPARE(find("a", 1000, {}), 1);
    QVERIFY(m_search.isUnderWay(2000));
    QVERIFY(!m_search.isUnderWay(2001));
}

QTEST_GUILESS_MAIN(NameSearchTest)
#include "NameSearchTest.moc"

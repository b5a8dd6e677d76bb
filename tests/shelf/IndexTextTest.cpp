#include "IndexText.h"

#include <QTest>

using namespace nookle;

class IndexTextTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFormIsThatOfIso8601();
    void otherFormsAreNoDates_data();
    void otherFormsAreNoDates();
};

void IndexTextTest::theFormIsThatOfIso8601()
{
    for (const qint64 seconds : { qint64(-62'135'596'800), qint64(-1), qint64(0), qint64(951'782'399),
                                  qint64(1'800'000'000), qint64(253'402'300'799) }) {
        const QDateTime date = QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC);
        QCOMPARE(dateText(date), date.toString(Qt::ISODate));
        const auto read = dateFromText(dateText(date));
        QCOMPARE(read, std::optional(date));
        QCOMPARE(read->timeSpec(), Qt::UTC);
    }
    QVERIFY(dateText(QDateTime()).isEmpty());
    QVERIFY(dateText(QDateTime::fromSecsSinceEpoch(253'402'300'800, Qt::UTC)).isEmpty());
}

void IndexTextTest::otherFormsAreNoDates_data()
{
    QTest::addColumn<QString>("text");
    for (const char* text :
         { "", "2026-01-31T12:00:00", "2026-01-31T12:00:00+", "2026-01-31T12:00:00Z ", "2026-01-31 12:00:00Z",
           "2026-02-30T12:00:00Z", "2026-01-31T24:00:00Z", "2026-01-31T23:59:60Z", "0000-01-31T12:00:00Z",
           "+026-01-31T12:00:00Z", "2026-1 -31T12:00:00Z", "\u0662026-01-31T12:00:00Z" })
        QTest::newRow(text) << QString::fromUtf8(text);
}

void IndexTextTest::otherFormsAreNoDates()
{
    QFETCH(const QString, text);
    QVERIFY(!dateFromText(text));
}

QTEST_APPLESS_MAIN(IndexTextTest)
#include "IndexTextTest.moc"

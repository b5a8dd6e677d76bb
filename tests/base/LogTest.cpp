#include "Log.h"

#include "CapturedLog.h"

#include <QTest>

using namespace nookle;

class LogTest final : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aMessageIsOneLineAfterTheProgramsName();
    void aControlCharacterNeverBreaksTheLine_data();
    void aControlCharacterNeverBreaksTheLine();
    void otherTextIsWrittenAsItIs();
};

void LogTest::aMessageIsOneLineAfterTheProgramsName()
{
    const CapturedLog log;
    logLine(QStringLiteral("saving failed: no space"));
    logLine(QString());
    const QStringList expected{ QStringLiteral("Nookle: saving failed: no space"), QStringLiteral("Nookle: ") };
    QCOMPARE(log.lines(), expected);
}

void LogTest::aControlCharacterNeverBreaksTheLine_data()
{
    QTest::addColumn<char16_t>("character");
    QTest::addColumn<QString>("escaped");
    QTest::newRow("NUL") << char16_t(0) << QStringLiteral("\\x00");
    QTest::newRow("tab") << u'\t' << QStringLiteral("\\x09");
    QTest::newRow("newline") << u'\n' << QStringLiteral("\\x0a");
    QTest::newRow("return") << u'\r' << QStringLiteral("\\x0d");
    QTest::newRow("escape") << char16_t(0x1b) << QStringLiteral("\\x1b");
    QTest::newRow("delete") << char16_t(0x7f) << QStringLiteral("\\x7f");
    QTest::newRow("next line") << char16_t(0x85) << QStringLiteral("\\x85");
    QTest::newRow("last control") << char16_t(0x9f) << QStringLiteral("\\x9f");
    QTest::newRow("line separator") << char16_t(0x2028) << QStringLiteral("\\x2028");
    QTest::newRow("paragraph separator") << char16_t(0x2029) << QStringLiteral("\\x2029");
}

void LogTest::aControlCharacterNeverBreaksTheLine()
{
    QFETCH(char16_t, character);
    QFETCH(QString, escaped);
    const CapturedLog log;
    logLine(QString(QStringLiteral("a") + QChar(character) + QStringLiteral("b")));
    QCOMPARE(log.lines(), QStringList({ QString(QStringLiteral("Nookle: a") + escaped + QStringLiteral("b")) }));
}

void LogTest::otherTextIsWrittenAsItIs()
{
    const CapturedLog log;
    const QString text = QStringLiteral(" \"100%1\" \\ \u00a0\u00fc\u20ac \U0001f34e ");
    logLine(text);
    QCOMPARE(log.lines(), QStringList({ QString(QStringLiteral("Nookle: ") + text) }));
}

QTEST_GUILESS_MAIN(LogTest)
#include "LogTest.moc"

#include "PlainText.h"

#include <QTest>

using namespace nookle;

class PlainTextTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void controlsAreTakenOut_data();
    void controlsAreTakenOut();
    void ordinaryTextStays_data();
    void ordinaryTextStays();
    void aTitleIsCutAtItsEnd();
    void aCutSplitsNoPairAndNoLetter_data();
    void aCutSplitsNoPairAndNoLetter();
    void aLetterWithHundredsOfAccentsIsCut();
    void aTitleOfNothingButControlsIsNone();
    void anEmptyTitleStays();
    void aShownTextKeepsItsStartAndItsEnd();
    void aShownTextOfAnyLengthIsShort_data();
    void aShownTextOfAnyLengthIsShort();
    void aMenuShowsEveryAmpersand();
};

namespace {

[[nodiscard]] QString aThenCodeThenB(char16_t code)
{
    return QLatin1Char('a') + QString(QChar(code)) + QLatin1Char('b');
}

} // namespace

void PlainTextTest::controlsAreTakenOut_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("plain");
    const auto rows = [](char16_t first, char16_t last, const char* between) {
        for (char16_t code = first; code <= last; ++code)
            QTest::addRow("U+%04X", unsigned(code))
                << aThenCodeThenB(code) << QStringLiteral("a%1b").arg(QLatin1String(between));
    };
    rows(0x00, 0x08, "");
    rows(0x09, 0x0d, " ");
    rows(0x0e, 0x1f, "");
    rows(0x7f, 0x84, "");
    rows(0x85, 0x85, " ");
    rows(0x86, 0x9f, "");
    rows(0x061c, 0x061c, "");
    rows(0x200e, 0x200f, "");
    rows(0x2028, 0x2029, " ");
    rows(0x202a, 0x202e, "");
    rows(0x2066, 0x2069, "");
    rows(0xd83d, 0xd83d, "");
    rows(0xde00, 0xde00, "");
}

void PlainTextTest::controlsAreTakenOut()
{
    QFETCH(const QString, text);
    QFETCH(const QString, plain);
    QCOMPARE(withoutControls(text), plain);
    QCOMPARE(cleanedTitle(text), plain);
    QCOMPARE(shownText(text), plain);
}

void PlainTextTest::ordinaryTextStays_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("words") << QStringLiteral("  two  words ");
    QTest::newRow("markup") << QStringLiteral("<b>&amp;</b>");
    QTest::newRow("a pair") << QStringLiteral("\U0001F600");
    QTest::newRow("letters that are joined") << QStringLiteral("\U0001F468\u200d\U0001F469\u200d\U0001F467");
    QTest::newRow("right to left") << QStringLiteral("\u05e9\u05dc\u05d5\u05dd");
    QTest::newRow("accents") << QStringLiteral("e\u0301");
    QTest::newRow("nothing") << QString();
    QTest::newRow("as long as can be") << QString(longestShownText, QLatin1Char('a'));
}

void PlainTextTest::ordinaryTextStays()
{
    QFETCH(const QString, text);
    QCOMPARE(withoutControls(text), text);
    QCOMPARE(cleanedTitle(text), text);
    QCOMPARE(shownText(text), text);
}

void PlainTextTest::aTitleIsCutAtItsEnd()
{
    const QString title = QString(longestShownText, QLatin1Char('a'));
    QCOMPARE(cleanedTitle(QString(title + QLatin1Char('b'))), title);
    QCOMPARE(cleanedTitle(QString(title + QString(1'000'000, QLatin1Char('b')))), title);
}

void PlainTextTest::aCutSplitsNoPairAndNoLetter_data()
{
    QTest::addColumn<QString>("letter");
    QTest::newRow("a pair") << QStringLiteral("\U0001F600");
    QTest::newRow("a letter and an accent") << QStringLiteral("e\u0301");
    QTest::newRow("a family") << QStringLiteral("\U0001F468\u200d\U0001F469\u200d\U0001F467");
}

void PlainTextTest::aCutSplitsNoPairAndNoLetter()
{
    QFETCH(const QString, letter);
    // Every place within the letter meets the cut.
    for (qsizetype shift = 0; shift < letter.size(); ++shift) {
        const QString title = QString(shift, QLatin1Char('a')) + letter.repeated(longestShownText);
        const QString cut = *cleanedTitle(title);
        QVERIFY(cut.size() <= longestShownText && cut.size() > longestShownText - letter.size());
        QCOMPARE(cut, QString(title.left(shift) + letter.repeated((cut.size() - shift) / letter.size())));

        const QStringList shown = shownText(title + title.left(shift)).split(QChar(0x2026));
        QCOMPARE(shown.size(), 2);
        QVERIFY(shown.join(QString()).size() < longestShownText);
        QCOMPARE(shown.join(QString()).remove(letter).remove(QLatin1Char('a')), QString());
    }
}

void PlainTextTest::aLetterWithHundredsOfAccentsIsCut()
{
    const QString overlong = QLatin1Char('e') + QString(10'000, QChar(0x0301));
    QCOMPARE(cleanedTitle(overlong)->size(), longestShownText);
    QCOMPARE(shownText(overlong).size(), longestShownText);
}

void PlainTextTest::aTitleOfNothingButControlsIsNone()
{
    QVERIFY(!cleanedTitle(std::nullopt));
    QVERIFY(!cleanedTitle(QStringLiteral("\u202e")));
    QVERIFY(!cleanedTitle(QStringLiteral("\n \x01")));
}

void PlainTextTest::anEmptyTitleStays()
{
    QCOMPARE(cleanedTitle(QString()), QString());
}

void PlainTextTest::aShownTextKeepsItsStartAndItsEnd()
{
    const QString path = QStringLiteral("/home/me/") + QString(500, QLatin1Char('a')) + QStringLiteral("/report.txt");
    const QString shown = shownText(path);
    QCOMPARE(shown.size(), longestShownText);
    QVERIFY(shown.startsWith(QStringLiteral("/home/me/")));
    QVERIFY(shown.endsWith(QStringLiteral("/report.txt")));
    QCOMPARE(shown.count(QChar(0x2026)), 1);
}

void PlainTextTest::aShownTextOfAnyLengthIsShort_data()
{
    QTest::addColumn<QString>("letter");
    QTest::newRow("letters") << QStringLiteral("a");
    QTest::newRow("line feeds") << QStringLiteral("\n");
    QTest::newRow("controls") << QStringLiteral("\x01");
    QTest::newRow("accents") << QStringLiteral("\u0301");
    QTest::newRow("pairs") << QStringLiteral("\U0001F600");
}

void PlainTextTest::aShownTextOfAnyLengthIsShort()
{
    QFETCH(const QString, letter);
    for (const qsizetype length : { 301, 5'000, 8'193, 1'000'000 })
        QVERIFY(shownText(letter.repeated(length)).size() <= longestShownText);
}

void PlainTextTest::aMenuShowsEveryAmpersand()
{
    QCOMPARE(menuTitle(QStringLiteral("Open &A && B")), QStringLiteral("Open &&A &&&& B"));
}

QTEST_GUILESS_MAIN(PlainTextTest)
#include "PlainTextTest.moc"

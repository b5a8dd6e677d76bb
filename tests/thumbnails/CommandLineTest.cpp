#include "CommandLine.h"

#include <QTest>

using namespace nookle;

class CommandLineTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void lineIsSplitIntoWords_data();
    void lineIsSplitIntoWords();
    void lineThatIsNoneIsRefused_data();
    void lineThatIsNoneIsRefused();
    void codesStandForTheFiles();
    void nameCannotBecomeAWordOrACode();
    void unknownCodeIsRefused_data();
    void unknownCodeIsRefused();

private:
    [[nodiscard]] static ThumbnailerFiles files()
    {
        return { QStringLiteral("/in put"), QStringLiteral("file:///in%20put"), QStringLiteral("/out"), 128 };
    }
};

void CommandLineTest::lineIsSplitIntoWords_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QStringList>("words");
    const auto row = [](const char* name, const char* line, const QStringList& words) {
        QTest::newRow(name) << QString::fromLatin1(line) << words;
    };
    const auto word = [](const char* text) { return QString::fromLatin1(text); };
    row("plain", "a  -s\t%s %u %o", { word("a"), word("-s"), word("%s"), word("%u"), word("%o") });
    row("double quotes", R"(a "b c" d)", { word("a"), word("b c"), word("d") });
    row("single quotes", R"(a 'b \c')", { word("a"), word(R"(b \c)") });
    row("empty word", R"(a "" '')", { word("a"), QString(), QString() });
    row("quotes within a word", R"(a=b" c"'d e')", { word("a=b cd e") });
    row("escapes", R"(a\ b "\"\$\`\\\n")", { word("a b"), word("\"$`\\\\n") });
    row("no shell", "a; $(b) | c > d & `e` *",
        { word("a;"), word("$(b)"), word("|"), word("c"), word(">"), word("d"), word("&"), word("`e`"), word("*") });
}

void CommandLineTest::lineIsSplitIntoWords()
{
    QFETCH(const QString, line);
    QFETCH(const QStringList, words);
    QCOMPARE(commandWords(line), std::optional(words));
}

void CommandLineTest::lineThatIsNoneIsRefused_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("empty") << QString();
    QTest::newRow("blank") << QStringLiteral(" \t");
    QTest::newRow("open quote") << QStringLiteral("a \"b");
    QTest::newRow("open single quote") << QStringLiteral("a 'b\\'c'");
    QTest::newRow("backslash at the end") << QStringLiteral("a b\\");
}

void CommandLineTest::lineThatIsNoneIsRefused()
{
    QFETCH(const QString, line);
    QCOMPARE(commandWords(line), std::nullopt);
}

void CommandLineTest::codesStandForTheFiles()
{
    const QStringList words{ QStringLiteral("a"),       QStringLiteral("%i"), QStringLiteral("--in=%u"),
                             QStringLiteral("%sx%s%%"), QStringLiteral("%o"), QString() };
    const QStringList expected{
        QStringLiteral("a"),        QStringLiteral("/in put"), QStringLiteral("--in=file:///in%20put"),
        QStringLiteral("128x128%"), QStringLiteral("/out"),    QString()
    };
    QCOMPARE(expandedWords(words, files()), std::optional(expected));
}

void CommandLineTest::nameCannotBecomeAWordOrACode()
{
    ThumbnailerFiles hostile = files();
    hostile.inputPath = QStringLiteral("/a %o \"b\" %s");
    const QStringList expected{ QStringLiteral("a"), hostile.inputPath, QStringLiteral("/out") };
    QCOMPARE(expandedWords({ QStringLiteral("a"), QStringLiteral("%i"), QStringLiteral("%o") }, hostile),
             std::optional(expected));
}

void CommandLineTest::unknownCodeIsRefused_data()
{
    QTest::addColumn<QStringList>("words");
    QTest::newRow("unknown") << QStringList{ QStringLiteral("a"), QStringLiteral("%o"), QStringLiteral("%f") };
    QTest::newRow("at the end") << QStringList{ QStringLiteral("a"), QStringLiteral("%o%") };
    QTest::newRow("no output") << QStringList{ QStringLiteral("a"), QStringLiteral("%i") };
}

void CommandLineTest::unknownCodeIsRefused()
{
    QFETCH(const QStringList, words);
    QCOMPARE(expandedWords(words, files()), std::nullopt);
}

QTEST_GUILESS_MAIN(CommandLineTest)
#include "CommandLineTest.moc"

#include "Catalogue.h"

#include <QDir>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using namespace nookle;

/// What the catalogues must hold for the texts of the source, which lupdate collects here anew.
class CatalogueTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void theCatalogueHasTheTextsOfTheSource_data() { addLanguages(); }
    void theCatalogueHasTheTextsOfTheSource();
    void everyTextIsTranslated_data() { addLanguages(); }
    void everyTextIsTranslated();
    void everyTranslationHasThePlaceholdersOfItsText_data() { addLanguages(); }
    void everyTranslationHasThePlaceholdersOfItsText();
    void everyTranslationBeginsAndEndsAsItsTextDoes_data() { addLanguages(); }
    void everyTranslationBeginsAndEndsAsItsTextDoes();
    void noTextNamesThingsThatThisDesktopDoesNotHave_data() { addLanguages(); }
    void noTextNamesThingsThatThisDesktopDoesNotHave();

private:
    static void addLanguages();
    /// The catalogue of the test's row.
    [[nodiscard]] static QList<CatalogueMessage> catalogue();

    QStringList m_names;
};

namespace {

/// In English a text may be left as it is, unless it has plural forms.
[[nodiscard]] bool mayStay(const CatalogueMessage& message, const QString& language)
{
    return language == QLatin1String("en") && !message.hasPlural;
}

/// What is read on the screen: the translation, or the text itself.
[[nodiscard]] QStringList shownTexts(const CatalogueMessage& message)
{
    const bool isTranslated = message.isFinished && !message.translations.join(QString()).isEmpty();
    return isTranslated ? message.translations : QStringList{ message.source };
}

[[nodiscard]] QStringList placeholders(const QString& text)
{
    static const QRegularExpression pattern(QStringLiteral("%L?(?:\\d{1,2}|n)"));
    QStringList found;
    for (auto match = pattern.globalMatch(text); match.hasNext();)
        found.append(match.next().captured());
    found.sort();
    return found;
}

/// The forms for one and two may do without their number, "one item".
[[nodiscard]] bool hasPlaceholders(const QString& translation, const CatalogueMessage& message)
{
    QStringList expected = placeholders(message.source);
    if (placeholders(translation) == expected)
        return true;
    return message.hasPlural && expected.removeOne(QStringLiteral("%n")) && placeholders(translation) == expected;
}

/// The space before the text and behind it, and whether it ends in an ellipsis.
[[nodiscard]] QString frame(const QString& text)
{
    const auto isSpace = [](QChar character) {
        return character == QLatin1Char(' ') || character == QLatin1Char('\n');
    };
    const auto begin = std::find_if_not(text.begin(), text.end(), isSpace) - text.begin();
    const auto end = std::find_if_not(text.rbegin(), text.rend(), isSpace) - text.rbegin();
    const QString ellipsis = text.endsWith(QChar(u'…')) ? QStringLiteral("…") : QString();
    return text.left(begin) + QLatin1Char('|') + ellipsis + text.right(end);
}

} // namespace

void CatalogueTest::initTestCase()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("source.ts"));
    QProcess collect;
    collect.setProcessChannelMode(QProcess::MergedChannels);
    collect.start(QStringLiteral(NOOKLE_LUPDATE),
                  { QStringLiteral("-silent"), QStringLiteral("-locations"), QStringLiteral("none"),
                    QStringLiteral(NOOKLE_SOURCE_FOLDER), QStringLiteral("-ts"), path });
    QVERIFY2(collect.waitForFinished(), NOOKLE_LUPDATE);
    // It warns of a text whose class it cannot tell, and which no catalogue would translate.
    QCOMPARE(collect.readAll(), QByteArray());
    const auto messages = readCatalogue(path);
    QVERIFY(messages && messages->size() > 50);
    for (const CatalogueMessage& message : *messages) {
        QVERIFY2(message.context.startsWith(QLatin1String("nookle::")), qPrintable(message.name()));
        m_names.append(message.name());
    }
    m_names.sort();
}

void CatalogueTest::addLanguages()
{
    QTest::addColumn<QString>("language");
    for (const QString& language : QStringLiteral(NOOKLE_LANGUAGES).split(QLatin1Char(' ')))
        QTest::newRow(qPrintable(language)) << language;
}

QList<CatalogueMessage> CatalogueTest::catalogue()
{
    QFETCH(QString, language);
    const QDir folder(QStringLiteral(NOOKLE_CATALOGUE_SOURCES));
    return readCatalogue(folder.filePath(QStringLiteral("nookle_%1.ts").arg(language)))
        .value_or(QList<CatalogueMessage>());
}

void CatalogueTest::theCatalogueHasTheTextsOfTheSource()
{
    QStringList names;
    for (const CatalogueMessage& message : catalogue())
        names.append(message.name());
    names.sort();
    for (const QString& name : m_names)
        QVERIFY2(names.contains(name), qPrintable(QStringLiteral("run scripts/update-translations for ") + name));
    QCOMPARE(names, m_names);
}

void CatalogueTest::everyTextIsTranslated()
{
    QFETCH(QString, language);
    for (const CatalogueMessage& message : catalogue()) {
        if (mayStay(message, language) && !message.isFinished && message.translations.join(QString()).isEmpty())
            continue;
        QVERIFY2(message.isFinished, qPrintable(message.name()));
        QVERIFY2(!message.translations.isEmpty(), qPrintable(message.name()));
        for (const QString& translation : message.translations)
            QVERIFY2(!translation.isEmpty(), qPrintable(message.name()));
    }
}

void CatalogueTest::everyTranslationHasThePlaceholdersOfItsText()
{
    for (const CatalogueMessage& message : catalogue()) {
        for (const QString& text : shownTexts(message))
            QVERIFY2(hasPlaceholders(text, message), qPrintable(text));
    }
}

void CatalogueTest::everyTranslationBeginsAndEndsAsItsTextDoes()
{
    for (const CatalogueMessage& message : catalogue()) {
        // A sign that joins texts has the spaces of its language.
        if (message.source == QLatin1String(", "))
            continue;
        for (const QString& text : shownTexts(message))
            QVERIFY2(frame(text) == frame(message.source), qPrintable(text));
    }
}

void CatalogueTest::noTextNamesThingsThatThisDesktopDoesNotHave()
{
    static const QRegularExpression foreign(QStringLiteral("Finder|Login Items|System Preferences|[⌃⌥⌘⇧]"));
    for (const CatalogueMessage& message : catalogue()) {
        for (const QString& text : shownTexts(message))
            QVERIFY2(!foreign.match(text).hasMatch(), qPrintable(text));
    }
}

QTEST_GUILESS_MAIN(CatalogueTest)
#include "CatalogueTest.moc"

#include "Translations.h"

#include <QDir>
#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>

using namespace nookle;

class TranslationsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void theFirstLanguageThatHasACatalogueIsTaken_data();
    void theFirstLanguageThatHasACatalogueIsTaken();
    void textsAreInTheLanguageForAsLongAsTheObjectLives();
    void englishHasTheWordsOfThisDesktop();
    void withoutCataloguesTheTextsStay();
    void aBrokenCatalogueIsPassedOver();
    void arabicIsWrittenFromRightToLeft();
    void anyOtherLanguageLeavesTheDirection();
    void aBuildHasItsCataloguesBesideTheProgram();
    void anInstalledProgramHasThemAmongTheSharedFiles();
};

namespace {

[[nodiscard]] QString catalogues()
{
    return QStringLiteral(NOOKLE_CATALOGUES);
}

[[nodiscard]] QString open()
{
    return QCoreApplication::translate("nookle::ShelfItemActions", "Open");
}

} // namespace

void TranslationsTest::cleanup()
{
    QGuiApplication::setLayoutDirection(Qt::LeftToRight);
}

void TranslationsTest::theFirstLanguageThatHasACatalogueIsTaken_data()
{
    QTest::addColumn<QStringList>("languages");
    QTest::addColumn<QString>("catalogue");
    const auto row = [](const char* name, const QString& languages, const char* catalogue) {
        QTest::newRow(name) << languages.split(QLatin1Char(' ')) << QString::fromLatin1(catalogue);
    };
    row("country", QStringLiteral("de-AT de-Latn-AT"), "de");
    row("names with underscores", QStringLiteral("pt_BR"), "pt_BR");
    row("another country's", QStringLiteral("pt-PT pt-Latn-PT pt"), "en");
    row("script", QStringLiteral("zh-SG zh-Hans-SG"), "zh_Hans");
    row("another script", QStringLiteral("zh-TW zh-Hant-TW zh"), "en");
    row("none of the first", QStringLiteral("nl nl-Latn-NL fr-CH de"), "fr");
    row("English before others", QStringLiteral("en-GB en-Latn-GB de"), "en");
    row("no language", QStringLiteral("C"), "en");
    row("not a language", QStringLiteral("../../etc x"), "en");
}

void TranslationsTest::theFirstLanguageThatHasACatalogueIsTaken()
{
    QFETCH(QStringList, languages);
    QTEST(Translations(catalogues(), languages).catalogue(), "catalogue");
}

void TranslationsTest::textsAreInTheLanguageForAsLongAsTheObjectLives()
{
    {
        const Translations translations(catalogues(), { QStringLiteral("de-DE") });
        QCOMPARE(open(), QStringLiteral("Öffnen"));
    }
    QCOMPARE(open(), QStringLiteral("Open"));
}

void TranslationsTest::englishHasTheWordsOfThisDesktop()
{
    const Translations translations(catalogues(), { QStringLiteral("en-US") });
    QCOMPARE(open(), QStringLiteral("Open"));
    QCOMPARE(QCoreApplication::translate("nookle::ShelfItemActions", "Show in Finder"),
             QStringLiteral("Show in Folder"));
}

void TranslationsTest::withoutCataloguesTheTextsStay()
{
    const QTemporaryDir empty;
    const Translations translations(empty.path(), { QStringLiteral("de-DE") });
    QCOMPARE(translations.catalogue(), QString());
    QCOMPARE(open(), QStringLiteral("Open"));
}

void TranslationsTest::aBrokenCatalogueIsPassedOver()
{
    const QTemporaryDir folder;
    QFile broken(folder.filePath(QStringLiteral("nookle_de.qm")));
    QVERIFY(broken.open(QIODevice::WriteOnly));
    broken.write("no catalogue");
    broken.close();
    QVERIFY(
        QFile::copy(catalogues() + QStringLiteral("/nookle_fr.qm"), folder.filePath(QStringLiteral("nookle_fr.qm"))));
    const Translations translations(folder.path(), { QStringLiteral("de"), QStringLiteral("fr") });
    QCOMPARE(open(), QStringLiteral("Ouvrir"));
}

void TranslationsTest::arabicIsWrittenFromRightToLeft()
{
    const Translations translations(catalogues(), { QStringLiteral("ar-EG") });
    QCoreApplication::processEvents();
    QCOMPARE(QGuiApplication::layoutDirection(), Qt::RightToLeft);
}

void TranslationsTest::anyOtherLanguageLeavesTheDirection()
{
    // There is no catalogue in Hebrew, and the English words are not mirrored.
    const Translations translations(catalogues(), { QStringLiteral("he-IL"), QStringLiteral("de-DE") });
    QCoreApplication::processEvents();
    QCOMPARE(QGuiApplication::layoutDirection(), Qt::LeftToRight);
}

void TranslationsTest::aBuildHasItsCataloguesBesideTheProgram()
{
    const QTemporaryDir build;
    QVERIFY(QDir(build.path()).mkdir(QStringLiteral("translations")));
    QCOMPARE(Translations::folder(build.path()), build.filePath(QStringLiteral("translations")));
}

void TranslationsTest::anInstalledProgramHasThemAmongTheSharedFiles()
{
    const QTemporaryDir prefix;
    QVERIFY(QDir(prefix.path()).mkdir(QStringLiteral("bin")));
    QCOMPARE(Translations::folder(prefix.filePath(QStringLiteral("bin"))),
             prefix.filePath(QStringLiteral("share/nookle/translations")));
}

QTEST_MAIN(TranslationsTest)
#include "TranslationsTest.moc"

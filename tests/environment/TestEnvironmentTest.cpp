#include <QDir>
#include <QFontDatabase>
#include <QMimeDatabase>
#include <QStandardPaths>
#include <QTest>

// ctest starts it in the session of a user who has set everything that a user can set.
class TestEnvironmentTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theSessionOfTheUserDoesNotReachATest_data();
    void theSessionOfTheUserDoesNotReachATest();
    void theFoldersOfTheUserAreTheTestsOwn_data();
    void theFoldersOfTheUserAreTheTestsOwn();
    void thereIsOneFontFamily();
    void fileTypesAreKnownWithoutThoseThatProgramsAdd();
    void theIconsAreTheTestsOwn();
    void noProgramOfTheMachineIsKnownToTheDesktop();
};

void TestEnvironmentTest::theSessionOfTheUserDoesNotReachATest_data()
{
    QTest::addColumn<QByteArray>("variable");
    for (const char* variable : { "DISPLAY", "GTK_MODULES", "LC_ALL", "QT_FONT_DPI", "QT_QPA_PLATFORMTHEME",
                                  "QT_SCALE_FACTOR", "QT_STYLE_OVERRIDE", "WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP" })
        QTest::newRow(variable) << QByteArray(variable);
}

void TestEnvironmentTest::theSessionOfTheUserDoesNotReachATest()
{
    QFETCH(const QByteArray, variable);
    QVERIFY(!qEnvironmentVariableIsSet(variable.constData()));
}

void TestEnvironmentTest::theFoldersOfTheUserAreTheTestsOwn_data()
{
    QTest::addColumn<QStandardPaths::StandardLocation>("location");
    QTest::newRow("home") << QStandardPaths::HomeLocation;
    QTest::newRow("cache") << QStandardPaths::GenericCacheLocation;
    QTest::newRow("settings") << QStandardPaths::GenericConfigLocation;
    QTest::newRow("data") << QStandardPaths::GenericDataLocation;
    QTest::newRow("run time") << QStandardPaths::RuntimeLocation;
}

void TestEnvironmentTest::theFoldersOfTheUserAreTheTestsOwn()
{
    QFETCH(const QStandardPaths::StandardLocation, location);
    const QString folder = QStandardPaths::writableLocation(location);
    QVERIFY2(folder.startsWith(QDir::tempPath() + QStringLiteral("/nookle-test-")), qPrintable(folder));
    QVERIFY(QDir(folder).exists());
}

void TestEnvironmentTest::thereIsOneFontFamily()
{
    // The toolkit adds names that stand for any family.
    const QStringList generic{ QStringLiteral("Monospace"), QStringLiteral("Sans Serif"), QStringLiteral("Serif") };
    QStringList families = QFontDatabase::families();
    families.removeIf([&](const QString& family) { return generic.contains(family); });
    QCOMPARE(families, QStringList{ QStringLiteral("DejaVu Sans") });
}

void TestEnvironmentTest::fileTypesAreKnownWithoutThoseThatProgramsAdd()
{
    QCOMPARE(QMimeDatabase().mimeTypeForFile(QStringLiteral("a.webp"), QMimeDatabase::MatchExtension).name(),
             QStringLiteral("image/webp"));
    const QStringList files = QStandardPaths::locateAll(
        QStandardPaths::GenericDataLocation, QStringLiteral("mime/packages"), QStandardPaths::LocateDirectory);
    QCOMPARE(files.size(), 1);
    QCOMPARE(QDir(files.first()).entryList(QDir::Files), QStringList{ QStringLiteral("freedesktop.org.xml") });
}

void TestEnvironmentTest::theIconsAreTheTestsOwn()
{
    const QStringList folders = QStandardPaths::locateAll(QStandardPaths::GenericDataLocation, QStringLiteral("icons"),
                                                          QStandardPaths::LocateDirectory);
    QCOMPARE(folders.size(), 1);
    QCOMPARE(QDir(folders.first()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
             QStringList{ QStringLiteral("hicolor") });
}

void TestEnvironmentTest::noProgramOfTheMachineIsKnownToTheDesktop()
{
    for (const char* kind : { "applications", "thumbnailers", "pixmaps" }) {
        const QString found = QStandardPaths::locate(QStandardPaths::GenericDataLocation, QString::fromLatin1(kind),
                                                     QStandardPaths::LocateDirectory);
        QVERIFY2(found.isEmpty(), qPrintable(found));
    }
}

QTEST_MAIN(TestEnvironmentTest)
#include "TestEnvironmentTest.moc"

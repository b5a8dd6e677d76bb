#include "KeyNames.h"

#include <QTest>

using namespace nookle;

class KeyNamesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void superStandsBeforeTheKey();
    void keysAreTakenOutOfGnomesWords_data();
    void keysAreTakenOutOfGnomesWords();
    void otherWordsStay_data();
    void otherWordsStay();
};

void KeyNamesTest::superStandsBeforeTheKey()
{
    QCOMPARE(keyNames(Qt::ControlModifier | Qt::MetaModifier | Qt::ShiftModifier, QStringLiteral("D")),
             QStringLiteral("Ctrl+Shift+Super+D"));
    QCOMPARE(keyNames({}, QStringLiteral("F12")), QStringLiteral("F12"));
}

void KeyNamesTest::keysAreTakenOutOfGnomesWords_data()
{
    QTest::addColumn<QString>("description");
    QTest::addColumn<QString>("keys");
    QTest::newRow("English") << QStringLiteral("Press <Control><Alt><Super>d") << QStringLiteral("Ctrl+Alt+Super+D");
    QTest::newRow("the keys first") << QStringLiteral("<Shift><Alt>F5 drücken") << QStringLiteral("Alt+Shift+F5");
    QTest::newRow("two") << QStringLiteral("Press <Control>d or <Super>Page_Up")
                         << QStringLiteral("Ctrl+D, Super+Page Up");
    QTest::newRow("another spelling") << QStringLiteral("<primary>space") << QStringLiteral("Ctrl+Space");
}

void KeyNamesTest::keysAreTakenOutOfGnomesWords()
{
    QFETCH(const QString, description);
    QTEST(readableKeys(description), "keys");
}

void KeyNamesTest::otherWordsStay_data()
{
    QTest::addColumn<QString>("description");
    QTest::newRow("nothing") << QString();
    QTest::newRow("for the user") << QStringLiteral("Ctrl+Alt+Win+D");
    QTest::newRow("no modifier") << QStringLiteral("Press F12");
    QTest::newRow("an unknown modifier") << QStringLiteral("Press <Control><Mod5>d");
    QTest::newRow("one of two unknown") << QStringLiteral("Press <Control>d or <Hyper>d");
}

void KeyNamesTest::otherWordsStay()
{
    QFETCH(const QString, description);
    QCOMPARE(readableKeys(description), description);
}

QTEST_GUILESS_MAIN(KeyNamesTest)
#include "KeyNamesTest.moc"

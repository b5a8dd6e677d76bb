#include "KeyNames.h"

#include <QTest>

#include <optional>

using namespace nookle;

class KeyNamesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void superStandsBeforeTheKey();
    void keysAreTakenOutOfGnomesWords_data();
    void keysAreTakenOutOfGnomesWords();
    void otherWordsStay_data();
    void otherWordsStay();
    void theToolkitTakesWhatItKnows_data();
    void theToolkitTakesWhatItKnows();
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

void KeyNamesTest::theToolkitTakesWhatItKnows_data()
{
    using Keys = std::optional<QKeyCombination>;
    QTest::addColumn<QString>("description");
    QTest::addColumn<Keys>("keys");
    const auto row = [](const char* name, const QString& description, const Keys& keys) {
        QTest::newRow(name) << description << keys;
    };
    const QKeyCombination usual = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier | Qt::Key_D;
    row("GNOME's words", QStringLiteral("Press <Control><Alt><Super>d"), usual);
    row("the toolkit's words", QStringLiteral("Meta+Ctrl+Alt+D"), usual);
    row("a bare key", QStringLiteral("F12"), QKeyCombination(Qt::Key_F12));
    row("the first of two", QStringLiteral("Press <Super>Page_Up or <Control>d"), Qt::META | Qt::Key_PageUp);
    row("nothing", QString(), {});
    row("one after the other", QStringLiteral("Ctrl+K, Ctrl+S"), {});
    row("other words", QStringLiteral("Press F12"), {});
    row("an unknown modifier", QStringLiteral("Press <Control><Mod5>d"), {});
    row("an unknown key", QStringLiteral("Press <Control>XF86Launch1"), {});
}

void KeyNamesTest::theToolkitTakesWhatItKnows()
{
    QFETCH(const QString, description);
    QFETCH(const std::optional<QKeyCombination>, keys);
    QCOMPARE(describedCombination(description), keys);
}

QTEST_GUILESS_MAIN(KeyNamesTest)
#include "KeyNamesTest.moc"

#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QJsonObject>
#include <QtTest>

using namespace nookle::e2e;

/// GNOME hands what Wayland programs have copied or selected to X11 programs, of which the shelf is one.
class GnomeClipboardTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void whatAWaylandProgramCopiedIsPasted();
    void whatIsSelectedInAWaylandProgramIsAdded();

private:
    /// Selects a word in the other program.
    void selectWord();
    [[nodiscard]] QString onlyText() const;
    /// Whether that word is on the shelf.
    [[nodiscard]] bool wordIsSaved() const
    {
        return waitFor([this] {
            const QString text = onlyText();
            return !text.isEmpty() && QStringLiteral("Some words that a user may select.").contains(text);
        });
    }
};

void GnomeClipboardTest::init()
{
    QVERIFY(setUpDesktop(WaylandDesktop::Compositor::gnome) && startShelf());
    QVERIFY(openPeer({ QStringLiteral("text") }));
    selectWord();
}

void GnomeClipboardTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("gnome-clipboard-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

void GnomeClipboardTest::selectWord()
{
    hand().moveTo(QPoint(100, 200));
    hand().click();
    hand().click();
}

QString GnomeClipboardTest::onlyText() const
{
    const QJsonObject content = m_shelf->savedItems().value(0).value(QLatin1String("content")).toObject();
    return content.value(QLatin1String("text")).toObject().value(QLatin1String("_0")).toString();
}

void GnomeClipboardTest::whatAWaylandProgramCopiedIsPasted()
{
    hand().typeWith(Hand::Key::control, Hand::Key::c);
    QVERIFY(activate(QStringLiteral("focus")));
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    hand().typeWith(Hand::Key::control, Hand::Key::v);
    QVERIFY(wordIsSaved());
}

void GnomeClipboardTest::whatIsSelectedInAWaylandProgramIsAdded()
{
    // The toolkit tells the compositor of the selection some time after the click.
    constexpr int toBeSaved = 3000;
    QVERIFY(waitFor([this] {
        return activate(QStringLiteral("add-selection"))
            && waitFor([this] { return !onlyText().isEmpty(); }, toBeSaved);
    }));
    QVERIFY(wordIsSaved());
}

QTEST_GUILESS_MAIN(GnomeClipboardTest)
#include "GnomeClipboardTest.moc"

#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QJsonObject>
#include <QtTest>

using namespace nookle::e2e;

/// The clipboard and the selection of other Wayland programs, while the shelf has no keyboard focus.
class WaylandClipboardTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void whatIsSelectedIsAdded();
    void whatIsCopiedFromTheShelfIsThereForOthers();

private:
    [[nodiscard]] bool setUp();
    [[nodiscard]] bool activate(const QString& action) const;
    [[nodiscard]] QString onlyText() const;
    /// What another program gets that pastes.
    [[nodiscard]] QString paste(const QStringList& options) const;
};

void WaylandClipboardTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("clipboard-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

bool WaylandClipboardTest::setUp()
{
    return setUpDesktop(compositor()) && startShelf();
}

bool WaylandClipboardTest::activate(const QString& action) const
{
    return m_desktop
               ->start(QStringLiteral("gdbus"),
                       { QStringLiteral("call"), QStringLiteral("--session"), QStringLiteral("-d"),
                         QStringLiteral("org.nookle.Nookle"), QStringLiteral("-o"),
                         QStringLiteral("/org/nookle/Nookle"), QStringLiteral("-m"),
                         QStringLiteral("org.freedesktop.Application.ActivateAction"), action, QStringLiteral("[]"),
                         QStringLiteral("{}") })
               ->waitForExit()
        == 0;
}

QString WaylandClipboardTest::onlyText() const
{
    const QList<QJsonObject> items = m_shelf->savedItems();
    const QJsonObject content = items.value(0).value(QLatin1String("content")).toObject();
    return content.value(QLatin1String("text")).toObject().value(QLatin1String("_0")).toString();
}

QString WaylandClipboardTest::paste(const QStringList& options) const
{
    const auto program =
        m_desktop->start(QStringLiteral("wl-paste"), options + QStringList{ QStringLiteral("--no-newline") });
    return program->waitForExit() == 0 ? QString::fromUtf8(program->output()) : QString();
}

void WaylandClipboardTest::whatIsSelectedIsAdded()
{
    QVERIFY(setUp());
    const QString words = QStringLiteral("selected words");
    const auto program = m_desktop->start(QStringLiteral("wl-copy"),
                                          { QStringLiteral("--primary"), QStringLiteral("--foreground"), words });
    QVERIFY(waitFor([&] { return paste({ QStringLiteral("--primary") }) == words; }));
    QVERIFY(activate(QStringLiteral("add-selection")));
    QVERIFY(waitFor([&] { return onlyText() == words; }));
}

void WaylandClipboardTest::whatIsCopiedFromTheShelfIsThereForOthers()
{
    QVERIFY(setUp());
    QVERIFY(putOnShelf("words", QStringLiteral("text/plain")));
    hand().moveTo(firstTile());
    hand().click();
    // The keys come to the shelf some time after the click.
    QVERIFY(waitFor([this] {
        hand().typeWith(Hand::Key::control, Hand::Key::c);
        return paste({}) == QLatin1String("words");
    }));
}

QTEST_GUILESS_MAIN(WaylandClipboardTest)
#include "WaylandClipboardTest.moc"

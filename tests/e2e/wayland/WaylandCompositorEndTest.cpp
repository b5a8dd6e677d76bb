#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QtTest>

using namespace nookle::e2e;

/// The compositor dies, as it does when it crashes; the session may start another one.
class WaylandCompositorEndTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void theShelfIsSavedAndTheProgramEnds_data();
    void theShelfIsSavedAndTheProgramEnds();

private:
    [[nodiscard]] bool addFile()
    {
        return callShelf({ QStringLiteral("org.nookle.Nookle1.AddToShelf"),
                           QStringLiteral("['%1']").arg(QString::fromLatin1(fileList().trimmed())), QString() });
    }
};

void WaylandCompositorEndTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("%1-%2.png")
                        .arg(qEnvironmentVariable("NOOKLE_ENVIRONMENT"), QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

void WaylandCompositorEndTest::theShelfIsSavedAndTheProgramEnds_data()
{
    QTest::addColumn<QString>("reconnect");
    QTest::newRow("alone") << QString();
    // Plasma sets this for the programs of its session.
    QTest::newRow("where the toolkit is told to wait for another compositor") << QStringLiteral("1");
}

void WaylandCompositorEndTest::theShelfIsSavedAndTheProgramEnds()
{
    QFETCH(const QString, reconnect);
    QVERIFY(setUpDesktop(compositor()));
    // Without X11 programs GNOME has no place for the panel. The shelf is there all the same.
    if (compositor() == WaylandDesktop::Compositor::gnome)
        m_desktop->setVariable(QStringLiteral("DISPLAY"), QString());
    if (!reconnect.isEmpty())
        m_desktop->setVariable(QStringLiteral("QT_WAYLAND_RECONNECT"), reconnect);
    QVERIFY(startShelf());
    QVERIFY(addFile());
    // The shelf has the file, and saves it a moment later.
    m_desktop->killCompositor();
    QVERIFY2(waitFor([this] { return !m_shelf->isRunning(); }), "the program goes on without a display");
    QCOMPARE(m_shelf->savedFileNames(), QStringList{ QStringLiteral("note one.txt") });
    QVERIFY2(m_shelf->log().contains("Nookle: the compositor is gone"), "the log does not say why");
    QVERIFY2(!m_shelf->log().contains("reconnect"), "the toolkit waits for another compositor, and crashes");
}

QTEST_GUILESS_MAIN(WaylandCompositorEndTest)
#include "WaylandCompositorEndTest.moc"

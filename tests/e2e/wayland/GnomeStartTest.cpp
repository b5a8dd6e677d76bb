#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

using namespace nookle::e2e;

/// How GNOME starts the program once it is installed.
class GnomeStartTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void theActivitiesStartTheProgramWhichShowsTheShelf();
    void theDesktopEntryIsActivatedOverTheBus();
    void anActionStartsTheProgramAndShowsTheShelf();
    void aFileOfTheDesktopEntryIsAdded();

private:
    /// As GNOME's session does once its shell runs.
    [[nodiscard]] bool tellBusOfDisplay();
    [[nodiscard]] bool launch(const QStringList& arguments) const;
    /// Whether the program owns its name on the bus.
    [[nodiscard]] bool isRunning() const;
    [[nodiscard]] bool startFromActivities(const QString& picture);

    QTemporaryDir m_prefix;
};

void GnomeStartTest::initTestCase()
{
    QVERIFY2(qEnvironmentVariableIsSet("NOOKLE_BUILD"), "run it with ctest, which says what is installed");
    QProcess cmake;
    cmake.start(qEnvironmentVariable("NOOKLE_CMAKE"),
                { QStringLiteral("--install"), qEnvironmentVariable("NOOKLE_BUILD"), QStringLiteral("--prefix"),
                  m_prefix.path() });
    QVERIFY(cmake.waitForFinished());
    QVERIFY2(cmake.exitCode() == 0, cmake.readAllStandardError().constData());
    // For the session bus and the shell.
    qputenv("XDG_DATA_DIRS",
            QByteArray(QFile::encodeName(m_prefix.filePath(QStringLiteral("share"))) + ':' + qgetenv("XDG_DATA_DIRS")));
    qputenv("PATH", QByteArray(QFile::encodeName(m_prefix.filePath(QStringLiteral("bin"))) + ':' + qgetenv("PATH")));
}

void GnomeStartTest::init()
{
    QVERIFY(setUpDesktop(WaylandDesktop::Compositor::gnome));
    QVERIFY(tellBusOfDisplay());
    QVERIFY(!isRunning());
}

void GnomeStartTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("gnome-start-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

bool GnomeStartTest::tellBusOfDisplay()
{
    return m_desktop
               ->start(QStringLiteral("dbus-update-activation-environment"),
                       { QStringLiteral("DISPLAY"), QStringLiteral("WAYLAND_DISPLAY"), QStringLiteral("XAUTHORITY"),
                         QStringLiteral("XDG_CURRENT_DESKTOP") })
               ->waitForExit()
        == 0;
}

bool GnomeStartTest::launch(const QStringList& arguments) const
{
    return m_desktop->start(QStringLiteral("gapplication"), arguments)->waitForExit() == 0;
}

bool GnomeStartTest::isRunning() const
{
    const auto names =
        m_desktop->start(QStringLiteral("gdbus"),
                         { QStringLiteral("call"), QStringLiteral("--session"), QStringLiteral("-d"),
                           QStringLiteral("org.freedesktop.DBus"), QStringLiteral("-o"),
                           QStringLiteral("/org/freedesktop/DBus"), QStringLiteral("-m"),
                           QStringLiteral("org.freedesktop.DBus.NameHasOwner"), QStringLiteral("org.nookle.Nookle") });
    return names->waitForExit() == 0 && names->output().contains("true");
}

bool GnomeStartTest::startFromActivities(const QString& picture)
{
    hand().type(Hand::Key::super);
    for (const Hand::Key key : { Hand::Key::n, Hand::Key::o, Hand::Key::o, Hand::Key::k })
        hand().type(key);
    // What is found comes some time after the words.
    constexpr int rest = 800;
    const QRect found(QPoint(), WaylandDesktop::displaySize);
    const bool isFound = waitFor([&] {
        const QImage before = m_desktop->picture(found);
        return holdsFor([&] { return m_desktop->picture(found) == before; }, rest);
    });
    keepPicture(picture);
    hand().type(Hand::Key::enter);
    return isFound;
}

void GnomeStartTest::theActivitiesStartTheProgramWhichShowsTheShelf()
{
    QVERIFY(startFromActivities(QStringLiteral("gnome-activities.png")));
    QVERIFY(waitFor([this] { return isRunning(); }));
    QVERIFY2(waitFor([this] { return isPanelOut(); }), "the first start does not show the shelf");
    keepPicture(QStringLiteral("gnome-started.png"));
    QVERIFY(activate(QStringLiteral("toggle")));
    QVERIFY(waitFor([this] { return isPanelGone(); }));
    QVERIFY(startFromActivities(QStringLiteral("gnome-activities-again.png")));
    QVERIFY2(waitFor([this] { return isPanelOut(); }), "the second start does not show the shelf");
}

void GnomeStartTest::theDesktopEntryIsActivatedOverTheBus()
{
    QVERIFY(launch({ QStringLiteral("launch"), QStringLiteral("org.nookle.Nookle") }));
    QVERIFY(waitFor([this] { return isPanelOut(); }));
    QVERIFY(launch({ QStringLiteral("action"), QStringLiteral("org.nookle.Nookle"), QStringLiteral("toggle") }));
    QVERIFY(waitFor([this] { return isPanelGone(); }));
}

// The shelf is asked for in the very moment in which its window is made.
void GnomeStartTest::anActionStartsTheProgramAndShowsTheShelf()
{
    QVERIFY(launch({ QStringLiteral("action"), QStringLiteral("org.nookle.Nookle"), QStringLiteral("toggle") }));
    QVERIFY(waitFor([this] { return isPanelOut(); }));
}

void GnomeStartTest::aFileOfTheDesktopEntryIsAdded()
{
    QVERIFY(launch({ QStringLiteral("launch"), QStringLiteral("org.nookle.Nookle"), home("files/note one.txt") }));
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames() == QStringList{ QStringLiteral("note one.txt") }; }));
}

QTEST_GUILESS_MAIN(GnomeStartTest)
#include "GnomeStartTest.moc"

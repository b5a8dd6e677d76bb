#include "PrivateDesktop.h"
#include "Shelf.h"
#include "Waiting.h"

#include <QDir>
#include <QSet>
#include <QTest>

#include <csignal>
#include <memory>
#include <utility>

#include <sys/resource.h>

using namespace nookle;
using namespace nookle::e2e;

namespace {

inline constexpr int screenWidth = 1200;

} // namespace

/// What a second start is told by a first one that is in need.
class SecondStartEndToEndTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aShelfWithFewDescriptorsIsSaidNotToAnswer_data();
    void aShelfWithFewDescriptorsIsSaidNotToAnswer();
    void someDescriptorsAreEnough();
    void aStoppedShelfAddsNothingForAStartThatGaveUp();

private:
    [[nodiscard]] QString file(const QString& name) const
    {
        return m_desktop->home(QString(QStringLiteral("files/") + name));
    }

    /// Lets the shelf get so many descriptors more than it has, until `giveBackDescriptors`.
    void leaveDescriptors(int count);
    void giveBackDescriptors() const;

    /// Starts it again with a file; its exit code, and what it said.
    [[nodiscard]] std::pair<int, QByteArray> startAgainWith(const QString& name) const;

    std::unique_ptr<PrivateDesktop> m_desktop;
    std::unique_ptr<Shelf> m_shelf;
    rlimit m_limit{};
};

void SecondStartEndToEndTest::init()
{
    m_desktop = PrivateDesktop::tryCreate({ QSize(screenWidth, 700), QStringLiteral("openbox"), false });
    QVERIFY(m_desktop);
    m_desktop->writeFile(QStringLiteral("files/one"), "words");
    m_desktop->writeFile(QStringLiteral("files/two"), "words");
    m_shelf = std::make_unique<Shelf>(*m_desktop, qEnvironmentVariable("NOOKLE_PROGRAM"));
    QVERIFY(m_shelf->start());
}

void SecondStartEndToEndTest::cleanup()
{
    if (QTest::currentTestFailed())
        qWarning("the shelf: %s", m_shelf->log().constData());
    m_shelf.reset();
    m_desktop.reset();
}

void SecondStartEndToEndTest::leaveDescriptors(int count)
{
    const QStringList names =
        QDir(QStringLiteral("/proc/%1/fd").arg(m_shelf->processId())).entryList(QDir::AllEntries | QDir::System);
    const QSet<QString> taken(names.begin(), names.end());
    rlim_t limit = 0;
    for (int left = count; left > 0 || taken.contains(QString::number(limit)); ++limit)
        left -= taken.contains(QString::number(limit)) ? 0 : 1;
    ::prlimit(static_cast<pid_t>(m_shelf->processId()), RLIMIT_NOFILE, nullptr, &m_limit);
    const rlimit few{ limit, m_limit.rlim_max };
    ::prlimit(static_cast<pid_t>(m_shelf->processId()), RLIMIT_NOFILE, &few, nullptr);
}

void SecondStartEndToEndTest::giveBackDescriptors() const
{
    ::prlimit(static_cast<pid_t>(m_shelf->processId()), RLIMIT_NOFILE, &m_limit, nullptr);
}

std::pair<int, QByteArray> SecondStartEndToEndTest::startAgainWith(const QString& name) const
{
    const auto program = m_desktop->start(qEnvironmentVariable("NOOKLE_PROGRAM"), { file(name) });
    const int code = program->waitForExit();
    return { code, program->log() };
}

void SecondStartEndToEndTest::aShelfWithFewDescriptorsIsSaidNotToAnswer_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("one for the connection") << 1;
    QTest::newRow("not enough for the panel") << 3;
}

void SecondStartEndToEndTest::aShelfWithFewDescriptorsIsSaidNotToAnswer()
{
    QFETCH(const int, count);
    leaveDescriptors(count);
    const auto [code, log] = startAgainWith(QStringLiteral("one"));
    QCOMPARE(code, 1);
    QCOMPARE(log, QByteArray("Nookle: another program holds the shelf and does not answer\n"));
    giveBackDescriptors();
    // What failed is not done afterwards.
    QCOMPARE(startAgainWith(QStringLiteral("two")).first, 0);
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames() == QStringList(QStringLiteral("two")); }));
}

void SecondStartEndToEndTest::someDescriptorsAreEnough()
{
    leaveDescriptors(20);
    QCOMPARE(startAgainWith(QStringLiteral("one")).first, 0);
    QVERIFY(waitFor([this] { return m_shelf->isAtRest(screenWidth); }));
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames() == QStringList(QStringLiteral("one")); }));
}

void SecondStartEndToEndTest::aStoppedShelfAddsNothingForAStartThatGaveUp()
{
    ::kill(static_cast<pid_t>(m_shelf->processId()), SIGSTOP);
    const int code = startAgainWith(QStringLiteral("one")).first;
    ::kill(static_cast<pid_t>(m_shelf->processId()), SIGCONT);
    QCOMPARE(code, 1);
    QCOMPARE(startAgainWith(QStringLiteral("two")).first, 0);
    QVERIFY(waitFor([this] { return m_shelf->savedFileNames() == QStringList(QStringLiteral("two")); }));
}

QTEST_GUILESS_MAIN(SecondStartEndToEndTest)
#include "SecondStartEndToEndTest.moc"

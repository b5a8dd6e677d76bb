#include "Waiting.h"
#include "WaylandShelfDesktop.h"

#include <QElapsedTimer>
#include <QJsonObject>
#include <QtTest>

using namespace nookle::e2e;

namespace {

/// What a process takes of the memory now, in MB.
[[nodiscard]] qint64 memory(qint64 process)
{
    QFile file(QStringLiteral("/proc/%1/status").arg(process));
    const QByteArray status = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    const qsizetype start = status.indexOf("VmRSS:") + 6;
    return status.mid(start, status.indexOf("kB", start) - start).trimmed().toLongLong() / 1024;
}

} // namespace

/// Drops whose source writes for ever, or slowly.
class WaylandPayloadTest : public QObject, private WaylandShelfDesktop {
    Q_OBJECT

private Q_SLOTS:
    void cleanup();

    void aSourceThatDoesNotEndHoldsNothingUp_data();
    void aSourceThatDoesNotEndHoldsNothingUp();
    void whatComesInPiecesIsSavedWhole();

private:
    /// Drops what the other program offers in that mode.
    [[nodiscard]] bool drop(const QString& mode, const QByteArray& payload, const QString& type);
};

void WaylandPayloadTest::cleanup()
{
    if (QTest::currentTestFailed())
        tellFailure(QStringLiteral("payload-%1.png").arg(QLatin1String(QTest::currentTestFunction())));
    tearDownDesktop();
}

bool WaylandPayloadTest::drop(const QString& mode, const QByteArray& payload, const QString& type)
{
    m_desktop->writeFile(QStringLiteral("offered"), payload);
    if (!beginDrag(QStringList{ mode, home("offered"), type, home("written") }) || !dragToEdge())
        return false;
    hand().release();
    return true;
}

void WaylandPayloadTest::aSourceThatDoesNotEndHoldsNothingUp_data()
{
    QTest::addColumn<QString>("mode");
    QTest::newRow("it writes for ever") << QStringLiteral("endless");
    QTest::newRow("it drips") << QStringLiteral("dripping");
}

void WaylandPayloadTest::aSourceThatDoesNotEndHoldsNothingUp()
{
    QFETCH(const QString, mode);
    constexpr qint64 longest = 5000;
    constexpr qint64 mostBytes = qint64{ 300 } * 1024 * 1024;
    constexpr qint64 mostGrowth = 30;
    QVERIFY(setUpDesktop(compositor()) && startShelf());
    const qint64 before = memory(m_shelf->processId());
    QVERIFY(before > 0);
    QVERIFY(drop(mode, "words", QStringLiteral("text/plain")));
    QElapsedTimer elapsed;
    elapsed.start();
    // The shelf answers others again, and the source finds its pipe closed.
    QVERIFY(callShelf({ QStringLiteral("org.freedesktop.DBus.Peer.Ping") }));
    QVERIFY2(waitFor([this] { return !content("written").isEmpty(); }, longest), "the source still writes");
    QVERIFY2(elapsed.elapsed() < longest, "the shelf was held up");
    QVERIFY(content("written").toLongLong() <= mostBytes);
    hand().moveTo(middle);
    QVERIFY2(waitFor([this] { return isPanelGone(); }), "the panel stays");
    const qint64 growth = memory(m_shelf->processId()) - before;
    QVERIFY2(growth < mostGrowth, qPrintable(QStringLiteral("it has grown by %1 MB").arg(growth)));
    QVERIFY(m_shelf->savedItems().isEmpty());
    QVERIFY(putOnShelf(fileList()));
}

void WaylandPayloadTest::whatComesInPiecesIsSavedWhole()
{
    QVERIFY(setUpDesktop(compositor()) && startShelf());
    const QByteArray text("words that come one after the other");
    QVERIFY(drop(QStringLiteral("pieces"), text, QStringLiteral("text/plain")));
    QVERIFY(waitFor([this] { return m_shelf->savedItems().size() == 1; }));
    const QJsonObject saved = m_shelf->savedItems().constFirst().value(QLatin1String("content")).toObject();
    QCOMPARE(saved.value(QLatin1String("text")).toObject().value(QLatin1String("_0")).toString().toUtf8(), text);
}

QTEST_GUILESS_MAIN(WaylandPayloadTest)
#include "WaylandPayloadTest.moc"

#include "X11Drops.h"

#include "PrivateDesktop.h"
#include "SelectionSource.h"
#include "XcbConnection.h"

#include <QCoreApplication>
#include <QTest>

#include <memory>

using namespace nookle;
using namespace nookle::e2e;

class X11DropsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void whatBecomesOfASaveIsTold_data();
    void whatBecomesOfASaveIsTold();
};

void X11DropsTest::whatBecomesOfASaveIsTold_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<SelectionSource::Manner>("manner");
    QTest::addColumn<SaveAnswer>("expected");
    QTest::newRow("success") << QByteArray("S") << SelectionSource::Manner::whole << SaveAnswer::saved;
    QTest::newRow("failure") << QByteArray("F") << SelectionSource::Manner::whole << SaveAnswer::refused;
    QTest::newRow("error") << QByteArray("E") << SelectionSource::Manner::whole << SaveAnswer::refused;
    QTest::newRow("refusal") << QByteArray() << SelectionSource::Manner::refusing << SaveAnswer::refused;
    QTest::newRow("silence") << QByteArray() << SelectionSource::Manner::silent << SaveAnswer::none;
}

void X11DropsTest::whatBecomesOfASaveIsTold()
{
    QFETCH(const QByteArray, answer);
    QFETCH(const SelectionSource::Manner, manner);
    QFETCH(const SaveAnswer, expected);
    const nookle::XcbConnection connection(xcb_connect(nullptr, nullptr));
    QCOMPARE(xcb_connection_has_error(connection.get()), 0);
    X11Drops drops(connection.get());
    const SelectionSource source("XdndSelection", answer, manner);
    QCOMPARE(drops.payload()->save("/tmp/nowhere/file"), expected);
}

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const auto desktop = PrivateDesktop::tryCreate({});
    if (!desktop)
        return EXIT_FAILURE;
    qputenv("DISPLAY", desktop->environment().value(QStringLiteral("DISPLAY")).toLatin1());
    X11DropsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "X11DropsTest.moc"

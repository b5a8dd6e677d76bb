#include "SessionEnd.h"

#include <QGuiApplication>
#include <QTest>

using namespace nookle;

class SessionEndTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theSessionsWordToEndIsHeard();
    void otherEventsGoTheirWay();
};

void SessionEndTest::theSessionsWordToEndIsHeard()
{
    SessionEnd end;
    int ended = 0;
    end.onEnd = [&ended] { ++ended; };
    QEvent quit(QEvent::Quit);
    QVERIFY(QCoreApplication::sendEvent(qGuiApp, &quit));
    QCOMPARE(ended, 1);
}

void SessionEndTest::otherEventsGoTheirWay()
{
    SessionEnd end;
    int ended = 0;
    end.onEnd = [&ended] { ++ended; };
    QEvent other(QEvent::ApplicationPaletteChange);
    QCoreApplication::sendEvent(qGuiApp, &other);
    QObject object;
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(&object, &quit);
    QCOMPARE(ended, 0);
}

QTEST_MAIN(SessionEndTest)
#include "SessionEndTest.moc"

#include "HandlerList.h"

#include <QStringList>
#include <QTest>

using namespace nookle;

class HandlerListTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void handlersAreCalledInTheirOrder();
    void aHandlerWhoseObjectIsGoneIsNotCalled();
    void aHandlerMayRemoveTheNextOne();
    void aHandlerMayRemoveItself();
    void aHandlerMayInstallAnother();
    void theListIsEmptyOnceAllAreGone();
    void anObjectMayOutliveTheList();
};

void HandlerListTest::handlersAreCalledInTheirOrder()
{
    HandlerList list;
    QStringList calls;
    const auto first = list.add([&] { calls.append(QStringLiteral("first")); });
    const auto second = list.add([&] { calls.append(QStringLiteral("second")); });
    list.call();
    QCOMPARE(calls, QStringList({ QStringLiteral("first"), QStringLiteral("second") }));
}

void HandlerListTest::aHandlerWhoseObjectIsGoneIsNotCalled()
{
    HandlerList list;
    int calls = 0;
    auto handler = list.add([&] { ++calls; });
    list.call();
    handler.reset();
    list.call();
    QCOMPARE(calls, 1);
}

void HandlerListTest::aHandlerMayRemoveTheNextOne()
{
    HandlerList list;
    int calls = 0;
    std::unique_ptr<Cancellable> second;
    const auto first = list.add([&] { second.reset(); });
    second = list.add([&] { ++calls; });
    list.call();
    QCOMPARE(calls, 0);
}

void HandlerListTest::aHandlerMayRemoveItself()
{
    HandlerList list;
    int calls = 0;
    std::unique_ptr<Cancellable> handler = list.add([&] {
        handler.reset();
        ++calls;
    });
    list.call();
    list.call();
    QCOMPARE(calls, 1);
}

void HandlerListTest::aHandlerMayInstallAnother()
{
    HandlerList list;
    int calls = 0;
    std::unique_ptr<Cancellable> second;
    const auto first = list.add([&] {
        if (!second)
            second = list.add([&] { ++calls; });
    });
    list.call();
    QCOMPARE(calls, 0);
    list.call();
    QCOMPARE(calls, 1);
}

void HandlerListTest::theListIsEmptyOnceAllAreGone()
{
    HandlerList list;
    QVERIFY(list.isEmpty());
    auto handler = list.add([] {});
    QVERIFY(!list.isEmpty());
    handler.reset();
    QVERIFY(list.isEmpty());
}

void HandlerListTest::anObjectMayOutliveTheList()
{
    auto list = std::make_unique<HandlerList>();
    auto handler = list->add([] {});
    list.reset();
    handler.reset();
    QVERIFY(!handler);
}

QTEST_GUILESS_MAIN(HandlerListTest)
#include "HandlerListTest.moc"

#include "X11DragOffer.h"

#include "PrivateDesktop.h"
#include "SelectionRequestor.h"
#include "Waiting.h"
#include "XcbReply.h"

#include <QGuiApplication>
#include <QTest>

#include <memory>

#include <xcb/xcb.h>

using namespace nookle;
using namespace nookle::e2e;

namespace {

const QByteArray selectionName("XdndSelection");

/// Bytes of which no two pieces are alike.
[[nodiscard]] QByteArray manyBytes(qsizetype size)
{
    QByteArray bytes;
    bytes.reserve(size);
    for (quint32 value = 1; bytes.size() < size; value = value * 1664525 + 1013904223)
        bytes.append(static_cast<char>(value >> 24));
    return bytes;
}

} // namespace

class X11DragOfferTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_offer.reset(); }

    void aReceiverGetsWhatIsOfferedWheneverItAsks_data();
    void aReceiverGetsWhatIsOfferedWheneverItAsks();
    void theBytesAreMadeWhenSomebodyAsks();
    void whatIsNotOfferedIsRefused();
    void whatCannotBeMadeIsRefused();
    void everyRequestHasExactlyOneAnswer();
    void anAnswerCarriesNothingElse();
    void theTargetsAreListed();
    void aTextIsDeliveredInTheEncodingThatIsAskedFor_data();
    void aTextIsDeliveredInTheEncodingThatIsAskedFor();
    void theWindowManagerGetsAnyTextAsUtf8();
    void theTimeOfTheDragIsTold();
    void severalTargetsAtOnceAreDeliveredAndTheOthersMarked();
    void oddListsOfSeveralTargetsAreRefused();
    void largeDataArriveInPieces();
    void aPieceThatFillsTheLimitIsDeliveredWhole();
    void severalReceiversGetLargeDataAtOnce();
    void severalTargetsAtOnceMayAllBeLarge();
    void aReceiverThatDiesMidwayHarmsNoOther();
    void aReceiverThatDiesBeforeItsAnswerHarmsNoOther();
    void aReceiverThatAsksAgainMidwayStartsAnew();
    void aReceiverThatStallsGivesItsPlaceUp();
    void theNextDragReplacesTheData();
    void aLargeDeliveryOutlivesItsDrag();
    void aDragThatWasNotOfferedIsLeftToTheToolkit();
    void otherSelectionsAreLeftToTheToolkit();

private:
    using Requestor = SelectionRequestor;

    [[nodiscard]] static xcb_connection_t* connection()
    {
        return qGuiApp->nativeInterface<QNativeInterface::QX11Application>()->connection();
    }
    void startOffer(const X11PropertyWriter::Limits& limits = {});
    /// Begins a drag as the toolkit does.
    static void claim(const QByteArray& selection = selectionName);
    void offer(const QString& format, const QByteArray& bytes);
    [[nodiscard]] static bool isAnswered(Requestor& requestor);
    [[nodiscard]] static bool isWhole(Requestor& requestor, const QByteArray& property = "NOOKLE_TEST");

    std::unique_ptr<X11DragOffer> m_offer;
};

void X11DragOfferTest::init()
{
    // The toolkit reports what the server objects to.
    QTest::failOnWarning(QRegularExpression(QStringLiteral(".")));
    startOffer();
}

void X11DragOfferTest::startOffer(const X11PropertyWriter::Limits& limits)
{
    m_offer.reset();
    m_offer = std::make_unique<X11DragOffer>(connection(), limits);
}

void X11DragOfferTest::claim(const QByteArray& selection)
{
    static const xcb_window_t window = [] {
        const xcb_window_t id = xcb_generate_id(connection());
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection())).data->root;
        xcb_create_window(connection(), XCB_COPY_FROM_PARENT, id, root, 0, 0, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                          XCB_COPY_FROM_PARENT, 0, nullptr);
        return id;
    }();
    xcb_set_selection_owner(connection(), window, xcbAtom(connection(), selection), XCB_CURRENT_TIME);
    // A round trip: the selection is owned from here on.
    const auto cookie = xcb_get_input_focus(connection());
    [[maybe_unused]] const auto reply = nookle::owned(xcb_get_input_focus_reply(connection(), cookie, nullptr));
}

void X11DragOfferTest::offer(const QString& format, const QByteArray& bytes)
{
    auto payload = std::make_shared<DragPayload>();
    payload->add(format, [bytes] { return bytes; });
    m_offer->begin(payload);
    claim();
}

bool X11DragOfferTest::isAnswered(Requestor& requestor)
{
    return waitFor([&] {
        requestor.work();
        return requestor.answer().has_value();
    });
}

bool X11DragOfferTest::isWhole(Requestor& requestor, const QByteArray& property)
{
    return waitFor([&] {
        requestor.work();
        const auto answer = requestor.answer(property);
        return answer && answer->isWhole;
    });
}

void X11DragOfferTest::aReceiverGetsWhatIsOfferedWheneverItAsks_data()
{
    QTest::addColumn<std::uint32_t>("time");
    QTest::newRow("with no time") << std::uint32_t{ XCB_CURRENT_TIME };
    QTest::newRow("with a time before the drag") << std::uint32_t{ 1 };
    QTest::newRow("with a time to come") << std::uint32_t{ 0x7fffffff };
}

void X11DragOfferTest::aReceiverGetsWhatIsOfferedWheneverItAsks()
{
    QFETCH(std::uint32_t, time);
    offer(QStringLiteral("text/uri-list"), "file:///a\r\n");
    Requestor requestor(selectionName);
    requestor.ask("text/uri-list", "NOOKLE_TEST", time);
    QVERIFY(isWhole(requestor));
    QCOMPARE(requestor.answer()->bytes, QByteArray("file:///a\r\n"));
    QCOMPARE(requestor.answer()->type, requestor.atom("text/uri-list"));
}

void X11DragOfferTest::theBytesAreMadeWhenSomebodyAsks()
{
    int made = 0;
    auto payload = std::make_shared<DragPayload>();
    payload->add(QStringLiteral("a/b"), [&] { return QByteArray::number(++made); });
    m_offer->begin(payload);
    claim();
    Requestor requestor(selectionName);
    requestor.ask("TARGETS");
    QVERIFY(isAnswered(requestor));
    QCOMPARE(made, 0);
    Requestor other(selectionName);
    other.ask("a/b");
    QVERIFY(isWhole(other));
    QCOMPARE(other.answer()->bytes, QByteArray("1"));
}

void X11DragOfferTest::whatIsNotOfferedIsRefused()
{
    offer(QStringLiteral("text/uri-list"), "file:///a\r\n");
    for (const char* target : { "application/vnd.portal.files", "text/plain", "UTF8_STRING", "DELETE", "TEXT" }) {
        Requestor requestor(selectionName);
        requestor.ask(target);
        QVERIFY(isAnswered(requestor));
        QVERIFY(requestor.answer()->isRefused);
    }
}

void X11DragOfferTest::whatCannotBeMadeIsRefused()
{
    auto payload = std::make_shared<DragPayload>();
    payload->add(QStringLiteral("a/b"), [] { return std::nullopt; });
    m_offer->begin(payload);
    claim();
    Requestor requestor(selectionName);
    requestor.ask("a/b");
    QVERIFY(isAnswered(requestor));
    QVERIFY(requestor.answer()->isRefused);
}

void X11DragOfferTest::everyRequestHasExactlyOneAnswer()
{
    offer(QStringLiteral("text/uri-list"), "file:///a\r\n");
    Requestor requestor(selectionName);
    for (const char* target : { "text/uri-list", "TARGETS", "image/png" })
        requestor.ask(target);
    const auto answers = [&] {
        requestor.work();
        return requestor.answers();
    };
    QVERIFY(waitFor([&] { return answers() == 3; }));
    QVERIFY(holdsFor([&] { return answers() == 3; }, 200));
}

// The event is larger than what an answer fills of it.
void X11DragOfferTest::anAnswerCarriesNothingElse()
{
    offer(QStringLiteral("a/b"), "bytes");
    Requestor requestor(selectionName);
    for (const char* target : { "a/b", "not/offered", "TARGETS" }) {
        requestor.forget();
        requestor.ask(target);
        QVERIFY(isAnswered(requestor));
        QCOMPARE(requestor.rest(), QByteArray(8, '\0'));
    }
}

void X11DragOfferTest::theTargetsAreListed()
{
    auto payload = std::make_shared<DragPayload>();
    for (const auto* format : { "text/html", "text/plain", "a/b" })
        payload->add(QLatin1String(format), [] { return QByteArray(); });
    m_offer->begin(payload);
    claim();
    Requestor requestor(selectionName);
    requestor.ask("TARGETS");
    QVERIFY(isWhole(requestor));
    std::vector<std::uint32_t> expected;
    for (const char* name :
         { "TARGETS", "MULTIPLE", "TIMESTAMP", "text/html", "text/plain", "UTF8_STRING", "TEXT", "STRING", "a/b" })
        expected.push_back(requestor.atom(name));
    QCOMPARE(requestor.answer()->numbers(), expected);
    QCOMPARE(requestor.answer()->type, std::uint32_t{ XCB_ATOM_ATOM });
}

void X11DragOfferTest::aTextIsDeliveredInTheEncodingThatIsAskedFor_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("target");
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray latin("\xc3\xa4\n");
    const QByteArray wide("\xe2\x82\xac");
    QTest::newRow("as UTF-8") << wide << QByteArray("UTF8_STRING") << QByteArray("UTF8_STRING") << wide;
    QTest::newRow("as any text") << wide << QByteArray("TEXT") << QByteArray("UTF8_STRING") << wide;
    QTest::newRow("as Latin-1") << latin << QByteArray("STRING") << QByteArray("STRING") << QByteArray("\xe4\n");
    QTest::newRow("not in Latin-1") << wide << QByteArray("STRING") << QByteArray() << QByteArray();
}

void X11DragOfferTest::aTextIsDeliveredInTheEncodingThatIsAskedFor()
{
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, target);
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, bytes);
    offer(QStringLiteral("text/plain"), text);
    Requestor requestor(selectionName);
    requestor.ask(target);
    QVERIFY(isAnswered(requestor));
    QCOMPARE(requestor.answer()->isRefused, type.isEmpty());
    QCOMPARE(requestor.answer()->bytes, bytes);
    if (!type.isEmpty())
        QCOMPARE(requestor.answer()->type, requestor.atom(type));
}

// It asks for Wayland programs, and passes on what it gets.
void X11DragOfferTest::theWindowManagerGetsAnyTextAsUtf8()
{
    offer(QStringLiteral("text/plain"), "\xc3\xa4\xe2\x82\xac");
    Requestor manager(selectionName);
    manager.beWindowManager();
    manager.ask("STRING");
    QVERIFY(isAnswered(manager));
    QCOMPARE(manager.answer()->bytes, QByteArray("\xc3\xa4\xe2\x82\xac"));
    QCOMPARE(manager.answer()->type, manager.atom("STRING"));
}

void X11DragOfferTest::theTimeOfTheDragIsTold()
{
    offer(QStringLiteral("a/b"), "1");
    Requestor requestor(selectionName);
    requestor.ask("TIMESTAMP");
    QVERIFY(isWhole(requestor));
    const auto first = requestor.answer()->numbers();
    QCOMPARE(first.size(), std::size_t{ 1 });
    QVERIFY(first.front() != 0);
    // The server's clock counts milliseconds.
    QTest::qWait(5);
    offer(QStringLiteral("a/b"), "2");
    Requestor later(selectionName);
    later.ask("TIMESTAMP");
    QVERIFY(isWhole(later));
    QVERIFY(later.answer()->numbers().front() > first.front());
}

void X11DragOfferTest::severalTargetsAtOnceAreDeliveredAndTheOthersMarked()
{
    offer(QStringLiteral("text/plain"), "words");
    Requestor requestor(selectionName);
    requestor.askForAll({ "text/plain", "image/png", "UTF8_STRING", "MULTIPLE" });
    QVERIFY(isWhole(requestor));
    const std::uint32_t plain = requestor.atom("text/plain");
    const std::uint32_t utf8 = requestor.atom("UTF8_STRING");
    const std::vector<std::uint32_t> expected{ plain, plain, requestor.atom("image/png"), 0,
                                               utf8,  utf8,  requestor.atom("MULTIPLE"),  0 };
    QCOMPARE(requestor.answer()->numbers(), expected);
    QCOMPARE(requestor.answers(), 1);
    for (const char* property : { "text/plain", "UTF8_STRING" })
        QCOMPARE(requestor.read(property), QByteArray("words"));
}

void X11DragOfferTest::oddListsOfSeveralTargetsAreRefused()
{
    offer(QStringLiteral("text/plain"), "words");
    Requestor nothing(selectionName);
    nothing.askForAll({});
    QVERIFY(isAnswered(nothing));
    QVERIFY(nothing.answer()->isRefused);
    Requestor tooMuch(selectionName);
    tooMuch.askForAll(std::vector<QByteArray>(65, "text/plain"));
    QVERIFY(isAnswered(tooMuch));
    QVERIFY(tooMuch.answer()->isRefused);
}

void X11DragOfferTest::largeDataArriveInPieces()
{
    const QByteArray bytes = manyBytes(10'000'003);
    offer(QStringLiteral("a/b"), bytes);
    Requestor requestor(selectionName);
    requestor.ask("a/b");
    QVERIFY(isWhole(requestor));
    QVERIFY(requestor.answer()->bytes == bytes);
    QCOMPARE(requestor.answer()->type, requestor.atom("a/b"));
    QVERIFY(requestor.answer()->pieces > 100);
}

void X11DragOfferTest::aPieceThatFillsTheLimitIsDeliveredWhole()
{
    startOffer({ .pieceSize = 100 });
    for (const int size : { 0, 99, 100, 101, 200, 201 }) {
        const QByteArray bytes = manyBytes(size);
        offer(QStringLiteral("a/b"), bytes);
        Requestor requestor(selectionName);
        requestor.ask("a/b");
        QVERIFY(isWhole(requestor));
        QCOMPARE(requestor.answer()->bytes, bytes);
        // The last one is empty.
        QCOMPARE(requestor.answer()->pieces, size <= 100 ? 0 : (size + 99) / 100 + 1);
    }
}

void X11DragOfferTest::severalReceiversGetLargeDataAtOnce()
{
    const QByteArray bytes = manyBytes(3'000'000);
    offer(QStringLiteral("a/b"), bytes);
    std::vector<std::unique_ptr<Requestor>> requestors;
    for (int index = 0; index < 5; ++index) {
        requestors.push_back(std::make_unique<Requestor>(selectionName));
        requestors.back()->ask("a/b");
    }
    const bool areAllWhole = waitFor([&] {
        bool isDone = true;
        for (const auto& each : requestors) {
            each->work();
            isDone = isDone && each->answer() && each->answer()->isWhole;
        }
        return isDone;
    });
    QVERIFY(areAllWhole);
    for (const auto& each : requestors)
        QVERIFY(each->answer()->bytes == bytes);
}

void X11DragOfferTest::severalTargetsAtOnceMayAllBeLarge()
{
    const QByteArray text = manyBytes(500'000).toBase64();
    offer(QStringLiteral("text/plain"), text);
    Requestor requestor(selectionName);
    requestor.ask("text/plain", "NOOKLE_ONE");
    requestor.ask("UTF8_STRING", "NOOKLE_TWO");
    for (const char* property : { "NOOKLE_ONE", "NOOKLE_TWO" }) {
        QVERIFY(isWhole(requestor, property));
        QVERIFY(requestor.answer(property)->bytes == text);
    }
}

void X11DragOfferTest::aReceiverThatDiesMidwayHarmsNoOther()
{
    startOffer({ .deliveries = 1 });
    const QByteArray bytes = manyBytes(1'000'000);
    offer(QStringLiteral("a/b"), bytes);
    auto dying = std::make_unique<Requestor>(selectionName);
    dying->stopAfter(2);
    dying->ask("a/b");
    QVERIFY(waitFor([&] {
        dying->work();
        return dying->answer() && dying->answer()->pieces == 2;
    }));
    dying->die();
    // Its place is free again.
    const bool isServed = waitFor([&] {
        Requestor next(selectionName);
        next.ask("a/b");
        return isAnswered(next) && !next.answer()->isRefused && isWhole(next) && next.answer()->bytes == bytes;
    });
    QVERIFY(isServed);
}

void X11DragOfferTest::aReceiverThatDiesBeforeItsAnswerHarmsNoOther()
{
    startOffer({ .deliveries = 1 });
    const QByteArray bytes = manyBytes(1'000'000);
    offer(QStringLiteral("a/b"), bytes);
    {
        Requestor dying(selectionName);
        dying.ask("a/b");
        // A round trip: the server has the request.
        (void)dying.atom("a/b");
    }
    const bool isServed = waitFor([&] {
        Requestor next(selectionName);
        next.ask("a/b");
        return isAnswered(next) && !next.answer()->isRefused && isWhole(next) && next.answer()->bytes == bytes;
    });
    QVERIFY(isServed);
}

void X11DragOfferTest::aReceiverThatAsksAgainMidwayStartsAnew()
{
    startOffer({ .deliveries = 1 });
    offer(QStringLiteral("a/b"), manyBytes(1'000'000));
    Requestor requestor(selectionName);
    requestor.stopAfter(2);
    requestor.ask("a/b");
    QVERIFY(waitFor([&] {
        requestor.work();
        return requestor.answer() && requestor.answer()->pieces == 2;
    }));
    requestor.forget();
    requestor.ask("a/b");
    QVERIFY(isWhole(requestor));
    QVERIFY(requestor.answer()->bytes == manyBytes(1'000'000));
}

void X11DragOfferTest::aReceiverThatStallsGivesItsPlaceUp()
{
    startOffer({ .deliveries = 1, .patience = std::chrono::milliseconds(300) });
    const QByteArray bytes = manyBytes(1'000'000);
    offer(QStringLiteral("a/b"), bytes);
    Requestor stalling(selectionName);
    stalling.stopAfter(1);
    stalling.ask("a/b");
    QVERIFY(waitFor([&] {
        stalling.work();
        return stalling.answer() && stalling.answer()->pieces == 1;
    }));
    Requestor refused(selectionName);
    refused.ask("a/b");
    QVERIFY(isAnswered(refused));
    QVERIFY(refused.answer()->isRefused);
    const bool isServed = waitFor([&] {
        Requestor next(selectionName);
        next.ask("a/b");
        return isAnswered(next) && !next.answer()->isRefused && isWhole(next) && next.answer()->bytes == bytes;
    });
    QVERIFY(isServed);
}

void X11DragOfferTest::theNextDragReplacesTheData()
{
    for (const char* bytes : { "first", "second" }) {
        offer(QStringLiteral("a/b"), bytes);
        Requestor requestor(selectionName);
        requestor.ask("a/b");
        QVERIFY(isWhole(requestor));
        QCOMPARE(requestor.answer()->bytes, QByteArray(bytes));
    }
}

void X11DragOfferTest::aLargeDeliveryOutlivesItsDrag()
{
    const QByteArray bytes = manyBytes(1'000'000);
    offer(QStringLiteral("a/b"), bytes);
    Requestor requestor(selectionName);
    requestor.ask("a/b");
    QVERIFY(waitFor([&] {
        requestor.work();
        return requestor.answer() && requestor.answer()->pieces == 1;
    }));
    offer(QStringLiteral("c/d"), "other");
    QVERIFY(isWhole(requestor));
    QVERIFY(requestor.answer()->bytes == bytes);
}

void X11DragOfferTest::aDragThatWasNotOfferedIsLeftToTheToolkit()
{
    offer(QStringLiteral("a/b"), "the shelf's");
    claim();
    Requestor requestor(selectionName);
    requestor.ask("a/b");
    const auto isFree = [&] {
        requestor.work();
        return !requestor.answer() || requestor.answer()->isRefused;
    };
    QVERIFY(holdsFor(isFree, 200));
}

void X11DragOfferTest::otherSelectionsAreLeftToTheToolkit()
{
    // Its word that it got the request.
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral("Unknown selection")));
    offer(QStringLiteral("a/b"), "the shelf's");
    claim("NOOKLE_SELECTION");
    Requestor requestor("NOOKLE_SELECTION");
    requestor.ask("a/b");
    const auto isFree = [&] {
        requestor.work();
        return !requestor.answer() || requestor.answer()->isRefused;
    };
    QVERIFY(holdsFor(isFree, 200));
}

int main(int argc, char* argv[])
{
    const auto desktop = PrivateDesktop::tryCreate({ QSize(400, 300), QString(), false });
    if (!desktop)
        return EXIT_FAILURE;
    qputenv("DISPLAY", desktop->environment().value(QStringLiteral("DISPLAY")).toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "xcb");
    const QGuiApplication application(argc, argv);
    X11DragOfferTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "X11DragOfferTest.moc"

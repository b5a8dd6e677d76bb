#include "X11Clipboard.h"

#include "CapturedLog.h"
#include "Pasteboard.h"
#include "PrivateDesktop.h"
#include "SelectionSource.h"
#include "Waiting.h"
#include "XcbAtoms.h"
#include "XcbConnection.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QMimeData>
#include <QTest>
#include <QTimer>

#include <algorithm>
#include <memory>
#include <optional>

using namespace nookle;
using namespace nookle::e2e;

namespace {

/// Makes a list of the atoms that the server has always.
[[nodiscard]] QByteArray atomList(std::initializer_list<std::uint32_t> atoms)
{
    QByteArray list;
    for (const std::uint32_t atom : atoms)
        list += QByteArray(reinterpret_cast<const char*>(&atom), sizeof atom);
    return list;
}

/// Makes a list of atoms with these names.
[[nodiscard]] QByteArray atomsOf(const QList<QByteArray>& names)
{
    const nookle::XcbConnection connection(xcb_connect(nullptr, nullptr));
    QByteArray list;
    for (const QByteArray& name : names)
        list += atomList({ xcbAtom(connection.get(), name) });
    return list;
}

} // namespace

class X11ClipboardTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theOwnersFormatsAreListed();
    void anOwnerWithoutFormatsHasNone_data();
    void anOwnerWithoutFormatsHasNone();
    void aFormatAtTheEndOfALongListIsFound();
    void aListWithoutEndIsCutOff();
    void aNameOfAnyLengthIsLeftOut();
    void whatTheOwnerDeliversIsRead();
    void whatComesInPiecesIsReadWhole();
    void whatIsSelectedIsReadToo();
    void whatThisProgramCopiedIsRead();
    void nothingIsAnsweredWithinTheCall();
    void anOwnerThatDoesNotAnswerHoldsUpNothing_data();
    void anOwnerThatDoesNotAnswerHoldsUpNothing();
    void theEndOfTheOwnerEndsTheQuestion_data();
    void theEndOfTheOwnerEndsTheQuestion();
    void theTimeIsForAllQuestionsTogether();
    void theLimitIsForAllQuestionsTogether();
    void theEndOfTheContentEndsTheQuestion();
    void anAnswerMayEndTheContent();

private:
    using Manner = SelectionSource::Manner;

    static constexpr std::chrono::milliseconds aMinute{ 60'000 };
    static constexpr std::chrono::milliseconds briefly{ 300 };

    void open(std::chrono::milliseconds patience, Clipboard::Content which = Clipboard::Content::copied)
    {
        m_clipboard = std::make_unique<X11Clipboard>(patience);
        m_content = m_clipboard->content(which);
    }

    [[nodiscard]] std::optional<QStringList> formats()
    {
        QEventLoop loop;
        std::optional<QStringList> answer;
        m_content->askFormats([&](const QStringList& formats) {
            answer = formats;
            loop.quit();
        });
        run(loop);
        return answer;
    }

    [[nodiscard]] std::optional<QByteArray> data(const QString& format)
    {
        QEventLoop loop;
        std::optional<QByteArray> answer;
        m_content->askData(format, [&](const QByteArray& bytes) {
            answer = bytes;
            loop.quit();
        });
        run(loop);
        return answer;
    }

    static void run(QEventLoop& loop)
    {
        QTimer::singleShot(aMinute, &loop, &QEventLoop::quit);
        loop.exec();
    }

    std::unique_ptr<X11Clipboard> m_clipboard;
    std::unique_ptr<ClipboardContent> m_content;
};

void X11ClipboardTest::theOwnersFormatsAreListed()
{
    constexpr std::uint32_t noAtom = 0x7fffffff;
    const SelectionSource source("CLIPBOARD", atomList({ XCB_ATOM_STRING, noAtom, XCB_ATOM_PIXMAP }), Manner::whole);
    open(aMinute);
    QCOMPARE(formats(), QStringList({ QStringLiteral("STRING"), QStringLiteral("PIXMAP") }));
}

void X11ClipboardTest::anOwnerWithoutFormatsHasNone_data()
{
    QTest::addColumn<Manner>("manner");
    QTest::addColumn<QByteArray>("list");
    QTest::newRow("an empty list") << Manner::whole << QByteArray();
    QTest::newRow("less than a number") << Manner::whole << QByteArray("ab");
    QTest::newRow("refusing") << Manner::refusing << QByteArray("abcd");
}

void X11ClipboardTest::anOwnerWithoutFormatsHasNone()
{
    QFETCH(Manner, manner);
    QFETCH(QByteArray, list);
    const SelectionSource source("CLIPBOARD", list, manner);
    open(aMinute);
    QCOMPARE(formats(), QStringList());
}

void X11ClipboardTest::aFormatAtTheEndOfALongListIsFound()
{
    QList<QByteArray> names;
    for (int each = 0; each < 20'000; ++each)
        names.append("format/" + QByteArray::number(each));
    names.append("text/plain");
    const SelectionSource source("CLIPBOARD", atomsOf(names), Manner::inPieces);
    open(aMinute);
    const auto found = formats();
    QCOMPARE(found->size(), names.size());
    QCOMPARE(found->constLast(), QStringLiteral("text/plain"));
}

void X11ClipboardTest::aListWithoutEndIsCutOff()
{
    QByteArray list = atomList({ XCB_ATOM_STRING });
    for (int each = 0; each < 100'000; ++each)
        list += atomList({ XCB_ATOM_PIXMAP });
    list += atomList({ XCB_ATOM_BITMAP });
    const SelectionSource source("CLIPBOARD", list, Manner::inPieces);
    open(aMinute);
    const CapturedLog log;
    QCOMPARE(formats(), QStringList({ QStringLiteral("STRING"), QStringLiteral("PIXMAP") }));
    QCOMPARE(log.lines().size(), 1);
    QVERIFY(log.lines().constFirst().contains(QStringLiteral("clipboard")));
}

void X11ClipboardTest::aNameOfAnyLengthIsLeftOut()
{
    const QByteArray longest = "application/octet-stream;name=" + QByteArray(900, 'a');
    const SelectionSource source("CLIPBOARD", atomsOf({ QByteArray(60'000, 'a'), longest }), Manner::whole);
    open(aMinute);
    QCOMPARE(formats(), QStringList(QString::fromLatin1(longest)));
}

void X11ClipboardTest::whatTheOwnerDeliversIsRead()
{
    const SelectionSource source("CLIPBOARD", QByteArray("a\0b", 3), Manner::whole);
    open(aMinute);
    QCOMPARE(data(QStringLiteral("image/png")), QByteArray("a\0b", 3));
    QCOMPARE(data(QStringLiteral("text/plain")), QByteArray("a\0b", 3));
}

void X11ClipboardTest::whatComesInPiecesIsReadWhole()
{
    QByteArray bytes(50'000'000, 'a');
    bytes.back() = 'b';
    const SelectionSource source("CLIPBOARD", bytes, Manner::inPieces);
    open(aMinute);
    QVERIFY(data(QStringLiteral("image/png")) == bytes);
}

void X11ClipboardTest::whatIsSelectedIsReadToo()
{
    const SelectionSource copied("CLIPBOARD", "copied", Manner::whole);
    const SelectionSource selected("PRIMARY", "selected", Manner::whole);
    open(aMinute, Clipboard::Content::selected);
    QCOMPARE(data(QStringLiteral("STRING")), QByteArray("selected"));
}

void X11ClipboardTest::whatThisProgramCopiedIsRead()
{
    open(aMinute);
    auto own = std::make_unique<QMimeData>();
    own->setData(QStringLiteral("application/x-own"), "own words");
    m_clipboard->copy(std::move(own));
    m_content = m_clipboard->content(Clipboard::Content::copied);
    QVERIFY(formats()->contains(QStringLiteral("application/x-own")));
    QCOMPARE(data(QStringLiteral("application/x-own")), QByteArray("own words"));
}

void X11ClipboardTest::nothingIsAnsweredWithinTheCall()
{
    const SelectionSource source("CLIPBOARD", "words", Manner::whole);
    open(aMinute);
    bool isAnswered = false;
    m_content->askData(QStringLiteral("STRING"), [&](const QByteArray&) { isAnswered = true; });
    QVERIFY(!isAnswered);
    QVERIFY(waitFor([&] { return isAnswered; }));
}

void X11ClipboardTest::anOwnerThatDoesNotAnswerHoldsUpNothing_data()
{
    QTest::addColumn<Manner>("manner");
    QTest::newRow("silent") << Manner::silent;
    QTest::newRow("stuck midway") << Manner::stuckMidway;
    QTest::newRow("dripping without end") << Manner::dripping;
}

void X11ClipboardTest::anOwnerThatDoesNotAnswerHoldsUpNothing()
{
    QFETCH(Manner, manner);
    const SelectionSource source("CLIPBOARD", QByteArray(200'000, 'a'), manner);
    QElapsedTimer sinceStart;
    sinceStart.start();
    open(briefly);
    QElapsedTimer sinceTurn;
    qint64 longestTurn = 0;
    QTimer turns;
    connect(&turns, &QTimer::timeout, this, [&] { longestTurn = std::max(longestTurn, sinceTurn.restart()); });
    turns.start(10);
    sinceTurn.start();
    QCOMPARE(data(QStringLiteral("STRING")), QByteArray());
    QVERIFY(sinceStart.elapsed() >= briefly.count());
    QVERIFY2(longestTurn < briefly.count(), QByteArray::number(longestTurn).constData());
}

void X11ClipboardTest::theEndOfTheOwnerEndsTheQuestion_data()
{
    QTest::addColumn<Manner>("manner");
    QTest::newRow("before an answer") << Manner::silent;
    QTest::newRow("midway") << Manner::dyingMidway;
}

void X11ClipboardTest::theEndOfTheOwnerEndsTheQuestion()
{
    QFETCH(Manner, manner);
    auto source = std::make_unique<SelectionSource>("CLIPBOARD", QByteArray(200'000, 'a'), manner);
    open(aMinute);
    std::optional<QByteArray> answer;
    m_content->askData(QStringLiteral("STRING"), [&](const QByteArray& bytes) { answer = bytes; });
    if (manner == Manner::silent)
        source.reset();
    QVERIFY(waitFor([&] { return answer.has_value(); }));
    QCOMPARE(*answer, QByteArray());
    // Whoever owns the clipboard next is asked.
    const SelectionSource next("CLIPBOARD", "words", Manner::whole);
    QCOMPARE(data(QStringLiteral("STRING")), QByteArray("words"));
}

void X11ClipboardTest::theTimeIsForAllQuestionsTogether()
{
    {
        const SelectionSource source("CLIPBOARD", "words", Manner::silent);
        open(briefly);
        QCOMPARE(formats(), QStringList());
    }
    const SelectionSource source("CLIPBOARD", "words", Manner::whole);
    QCOMPARE(data(QStringLiteral("STRING")), QByteArray());
    QCOMPARE(formats(), QStringList());
}

void X11ClipboardTest::theLimitIsForAllQuestionsTogether()
{
    const SelectionSource source("CLIPBOARD", QByteArray(100'000'000, 'a'), Manner::inPieces);
    open(aMinute);
    QCOMPARE(data(QStringLiteral("image/a"))->size(), 100'000'000);
    QCOMPARE(data(QStringLiteral("image/b"))->size(), 100'000'000);
    const CapturedLog log;
    QCOMPARE(data(QStringLiteral("image/c"))->size(), 0);
    QCOMPARE(log.lines().size(), 1);
}

void X11ClipboardTest::theEndOfTheContentEndsTheQuestion()
{
    const SelectionSource source("CLIPBOARD", "words", Manner::whole);
    open(aMinute);
    m_content->askData(QStringLiteral("STRING"), [](const QByteArray&) { QFAIL("an answer without a question"); });
    m_content = m_clipboard->content(Clipboard::Content::copied);
    QCOMPARE(data(QStringLiteral("STRING")), QByteArray("words"));
}

void X11ClipboardTest::anAnswerMayEndTheContent()
{
    const SelectionSource source("CLIPBOARD", "words", Manner::whole);
    open(aMinute);
    m_content->askData(QStringLiteral("STRING"), [this](const QByteArray&) { m_content.reset(); });
    QVERIFY(waitFor([this] { return m_content == nullptr; }));
    open(briefly);
    {
        const SelectionSource silent("CLIPBOARD", "words", Manner::silent);
        m_content->askFormats([this](const QStringList&) { m_content.reset(); });
        QVERIFY(waitFor([this] { return m_content == nullptr; }));
    }
}

int main(int argc, char* argv[])
{
    const auto desktop = PrivateDesktop::tryCreate({});
    if (!desktop)
        return EXIT_FAILURE;
    qputenv("DISPLAY", desktop->environment().value(QStringLiteral("DISPLAY")).toLatin1());
    qputenv("QT_QPA_PLATFORM", "xcb");
    QGuiApplication application(argc, argv);
    X11ClipboardTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "X11ClipboardTest.moc"

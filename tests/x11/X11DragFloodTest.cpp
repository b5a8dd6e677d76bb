#include "X11ForeignDrags.h"

#include "PrivateDesktop.h"
#include "XcbAtoms.h"
#include "XcbConnection.h"
#include "XcbReply.h"
#include "XcbRoot.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTest>

#include <chrono>

#include <sys/prctl.h>

using namespace nookle;
using namespace nookle::e2e;

/// A program that takes the selection of drags and gives it up again and again.
class X11DragFloodTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void manyChangesAreToldNowAndThen_data();
    void manyChangesAreToldNowAndThen();

private:
    void takeSelection() { setOwner(m_window); }
    void giveSelectionUp() { setOwner(XCB_WINDOW_NONE); }
    void setOwner(xcb_window_t owner) { xcb_set_selection_owner(m_source.get(), owner, m_selection, XCB_CURRENT_TIME); }
    /// Returns once the server has done everything.
    void finish()
    {
        const auto cookie = xcb_get_input_focus(m_source.get());
        const auto reply = nookle::owned(xcb_get_input_focus_reply(m_source.get(), cookie, nullptr));
        QVERIFY(reply);
    }

    nookle::XcbConnection m_source;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
};

void X11DragFloodTest::initTestCase()
{
    m_source.reset(xcb_connect(nullptr, nullptr));
    QCOMPARE(xcb_connection_has_error(m_source.get()), 0);
    m_selection = xcbAtom(m_source.get(), "XdndSelection");
    m_window = xcb_generate_id(m_source.get());
    xcb_create_window(m_source.get(), XCB_COPY_FROM_PARENT, m_window, rootOf(m_source.get()), 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_ONLY, XCB_COPY_FROM_PARENT, 0, nullptr);
}

void X11DragFloodTest::init()
{
    giveSelectionUp();
    finish();
}

void X11DragFloodTest::manyChangesAreToldNowAndThen_data()
{
    QTest::addColumn<bool>("goesOn");
    QTest::newRow("the last one is a drag") << true;
    QTest::newRow("the last one is none") << false;
}

void X11DragFloodTest::manyChangesAreToldNowAndThen()
{
    QFETCH(const bool, goesOn);
    constexpr std::chrono::milliseconds flood{ 300 };
    constexpr int changesAtOnce = 50;
    constexpr qint64 mostOften = 40;
    X11ForeignDrags drags;
    QVERIFY(drags.watch());
    int told = 0;
    drags.onChanged = [&] { ++told; };
    QElapsedTimer time;
    time.start();
    for (int round = 0; !time.hasExpired(flood.count()); ++round) {
        for (int change = 0; change < changesAtOnce; ++change)
            change % 2 == round % 2 ? takeSelection() : giveSelectionUp();
        finish();
        QCoreApplication::processEvents();
    }
    goesOn ? takeSelection() : giveSelectionUp();
    finish();
    // Longer than any pause: what has been held back is told by then.
    QTest::qWait(100);
    QTRY_COMPARE(drags.isUnderWay(), goesOn);
    QVERIFY(told >= 1);
    QVERIFY2(told <= time.elapsed() / mostOften + 1, qPrintable(QString::number(told)));
}

int main(int argc, char* argv[])
{
    QCoreApplication application(argc, argv);
    const auto desktop = PrivateDesktop::tryCreate({});
    if (!desktop)
        return EXIT_FAILURE;
    qputenv("DISPLAY", desktop->display());
    // Such a process is what the session's X server is known by.
    ::prctl(PR_SET_NAME, "Xwayland");
    X11DragFloodTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "X11DragFloodTest.moc"

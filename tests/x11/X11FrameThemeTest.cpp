#include "X11FrameTheme.h"

#include "PrivateDesktop.h"
#include "XcbOwned.h"

#include <QGuiApplication>
#include <QPalette>
#include <QTest>
#include <QWindow>

#include <memory>

#include <xcb/xcb.h>

using namespace nookle;
using namespace nookle::e2e;

/// What the windows of the program tell the window manager of their colours.
class X11FrameThemeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aWindowWithDarkColorsSaysSo();
    void aWindowWithLightColorsSaysNothing();
    void anOpenWindowFollowsTheColors();
    void aWindowThatWasThereBeforeSaysSoToo();

private:
    static void setColors(Qt::GlobalColor window, Qt::GlobalColor text)
    {
        QPalette colors;
        colors.setColor(QPalette::Window, window);
        colors.setColor(QPalette::WindowText, text);
        QGuiApplication::setPalette(colors);
    }
    [[nodiscard]] QByteArray variant(const QWindow& window) const;

    XcbConnection m_connection;
    std::unique_ptr<X11FrameTheme> m_theme;
};

void X11FrameThemeTest::init()
{
    m_connection.reset(xcb_connect(nullptr, nullptr));
    setColors(Qt::black, Qt::white);
    m_theme = std::make_unique<X11FrameTheme>(m_connection.get());
}

void X11FrameThemeTest::cleanup()
{
    m_theme.reset();
    m_connection.reset();
}

QByteArray X11FrameThemeTest::variant(const QWindow& window) const
{
    const std::uint32_t name = xcbAtom(m_connection.get(), "_GTK_THEME_VARIANT");
    const auto reply = owned(xcb_get_property_reply(
        m_connection.get(),
        xcb_get_property(m_connection.get(), 0, static_cast<xcb_window_t>(window.winId()), name, XCB_ATOM_ANY, 0, 100),
        nullptr));
    return { static_cast<const char*>(xcb_get_property_value(reply.get())),
             xcb_get_property_value_length(reply.get()) };
}

void X11FrameThemeTest::aWindowWithDarkColorsSaysSo()
{
    QWindow window;
    window.create();
    QCOMPARE(variant(window), QByteArray("dark"));
}

void X11FrameThemeTest::aWindowWithLightColorsSaysNothing()
{
    setColors(Qt::white, Qt::black);
    QWindow window;
    window.create();
    QCOMPARE(variant(window), QByteArray());
}

void X11FrameThemeTest::anOpenWindowFollowsTheColors()
{
    QWindow window;
    window.create();
    setColors(Qt::white, Qt::black);
    QCOMPARE(variant(window), QByteArray());
    setColors(Qt::black, Qt::white);
    QCOMPARE(variant(window), QByteArray("dark"));
}

void X11FrameThemeTest::aWindowThatWasThereBeforeSaysSoToo()
{
    m_theme.reset();
    QWindow window;
    window.create();
    QCOMPARE(variant(window), QByteArray());
    m_theme = std::make_unique<X11FrameTheme>(m_connection.get());
    QCOMPARE(variant(window), QByteArray("dark"));
}

int main(int argc, char* argv[])
{
    const auto desktop = PrivateDesktop::tryCreate({ QSize(800, 600), QString(), false });
    if (!desktop)
        return EXIT_FAILURE;
    qputenv("DISPLAY", desktop->environment().value(QStringLiteral("DISPLAY")).toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "xcb");
    QGuiApplication application(argc, argv);
    X11FrameThemeTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "X11FrameThemeTest.moc"

#include "FixedSizeWindow.h"

#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWindow>

#include <memory>

using namespace nookle;

namespace {

constexpr QSize wanted(200, 300);
constexpr QSize cut(200, 270);

} // namespace

/// A window that the desktop shows in another size than its own.
class FixedSizeWindowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aWindowThatIsCutGetsItsSizeBack();
    void aDesktopThatInsistsIsLeftAlone();
    void eachShowingMayBeCut();

private:
    void showWindow();
    /// The toolkit's window has no limits of its own, as that of a compositor has none.
    void cutWindow() { m_window->windowHandle()->resize(cut); }
    /// Whether the window has been cut, and has got its size back.
    [[nodiscard]] bool hasItsSizeBack();

    std::unique_ptr<FixedSizeWindow> m_window;
};

void FixedSizeWindowTest::init()
{
    m_window = std::make_unique<FixedSizeWindow>(Qt::Window);
    auto* content = new QWidget;
    content->setFixedSize(wanted);
    auto* layout = new QVBoxLayout(m_window.get());
    layout->setContentsMargins({});
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(content);
}

void FixedSizeWindowTest::showWindow()
{
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QCOMPARE(m_window->size(), wanted);
}

bool FixedSizeWindowTest::hasItsSizeBack()
{
    const QSignalSpy heights(m_window->windowHandle(), &QWindow::heightChanged);
    cutWindow();
    const auto isBack = [&] { return heights.size() == 2 && m_window->size() == wanted; };
    return QTest::qWaitFor(isBack) && heights.first().first() == cut.height();
}

void FixedSizeWindowTest::aWindowThatIsCutGetsItsSizeBack()
{
    showWindow();
    QVERIFY(hasItsSizeBack());
    QCOMPARE(m_window->windowHandle()->size(), wanted);
}

void FixedSizeWindowTest::aDesktopThatInsistsIsLeftAlone()
{
    constexpr int patience = 3;
    showWindow();
    for (int time = 0; time < patience; ++time)
        QVERIFY(hasItsSizeBack());
    cutWindow();
    QTRY_COMPARE(m_window->size(), cut);
    QCoreApplication::processEvents();
    QCOMPARE(m_window->size(), cut);
}

void FixedSizeWindowTest::eachShowingMayBeCut()
{
    showWindow();
    QVERIFY(hasItsSizeBack());
    m_window->hide();
    showWindow();
    QVERIFY(hasItsSizeBack());
}

QTEST_MAIN(FixedSizeWindowTest)
#include "FixedSizeWindowTest.moc"

#include "PanelContentView.h"

#include <QPainter>
#include <QTest>

using namespace nookle;

namespace {

/// One colour, with nothing above it, how often it was painted, and how many keys it got.
class Coloured final : public QWidget {
public:
    int paintings = 0;
    int keys = 0;

protected:
    void keyPressEvent(QKeyEvent* /*event*/) override { ++keys; }
    void paintEvent(QPaintEvent* /*event*/) override
    {
        ++paintings;
        QPainter(this).fillRect(rect().adjusted(0, 20, 0, 0), Qt::red);
    }
};

} // namespace

class PanelContentViewTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { m_view.reset(); }

    void theContentFillsTheWindow();
    void theContentIsDrawnToTheRightWhileItSlides();
    void whatTheContentLeavesFreeStaysFree();
    void slidingPaintsTheContentOnlyOnce();
    void theContentStaysWhereDragsFindIt();
    void atRestTheContentPaintsItselfAgain();
    void aWindowThatIsShownForTheSlideBeginsEmpty();
    void aContentOutOfSightIsNotThereUntilItSlidesIn();
    void theContentHasTheKeysIfTheWindowGotThemBeforeItsSize();
    void aWindowThatGoesGetsNoKeys();

private:
    [[nodiscard]] QColor colorAt(int x, int y = 150) const;

    std::unique_ptr<PanelContentView> m_view;
    Coloured* m_content = nullptr;
};

void PanelContentViewTest::init()
{
    m_view = std::make_unique<PanelContentView>();
    m_content = new Coloured;
    m_view->setContent(m_content);
    m_view->resize(112, 300);
    m_view->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_view.get()));
}

void PanelContentViewTest::aContentOutOfSightIsNotThereUntilItSlidesIn()
{
    m_view->setContentOffset(113);
    QVERIFY(!m_content->isVisible());
    QCOMPARE(colorAt(20), QColor(Qt::transparent));
    m_view->setContentOffset(112);
    QVERIFY(m_content->isVisible());
    QCOMPARE(m_content->geometry(), m_view->rect());
    QCOMPARE(colorAt(20), QColor(Qt::transparent));
    m_view->setContentOffset(0);
    QCOMPARE(colorAt(20), QColor(Qt::red));
}

void PanelContentViewTest::theContentHasTheKeysIfTheWindowGotThemBeforeItsSize()
{
    m_view.reset();
    m_view = std::make_unique<PanelContentView>();
    m_content = new Coloured;
    m_content->setFocusPolicy(Qt::StrongFocus);
    m_view->setContent(m_content);
    m_view->resize(1, 1);
    m_content->setFocus();
    m_view->show();
    m_view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    QVERIFY(!m_content->hasFocus());
    m_view->resize(112, 300);
    QVERIFY(m_content->hasFocus());
}

void PanelContentViewTest::aWindowThatGoesGetsNoKeys()
{
    m_content->setFocusPolicy(Qt::StrongFocus);
    m_view->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_view.get()));
    m_content->setFocus();
    QWindow& window = m_view->panelWindow();
    QTest::keyClick(&window, Qt::Key_Delete);
    QCOMPARE(m_content->keys, 1);
    m_view->setTakesKeys(false);
    QTest::keyClick(&window, Qt::Key_Delete);
    QCOMPARE(m_content->keys, 1);
    m_view->setTakesKeys(true);
    QTest::keyClick(&window, Qt::Key_Delete);
    QCOMPARE(m_content->keys, 2);
}

QColor PanelContentViewTest::colorAt(int x, int y) const
{
    QImage picture(m_view->size(), QImage::Format_ARGB32_Premultiplied);
    // What the last frame has left.
    picture.fill(Qt::green);
    m_view->render(&picture, {}, {}, QWidget::DrawChildren);
    return picture.pixelColor(x, y);
}

void PanelContentViewTest::theContentFillsTheWindow()
{
    QCOMPARE(m_content->geometry(), m_view->rect());
    QCOMPARE(colorAt(1), QColor(Qt::red));
}

void PanelContentViewTest::theContentIsDrawnToTheRightWhileItSlides()
{
    m_view->setContentOffset(40);
    QCOMPARE(colorAt(39).alpha(), 0);
    QCOMPARE(colorAt(41), QColor(Qt::red));
    m_view->setContentOffset(20);
    QCOMPARE(colorAt(19).alpha(), 0);
    QCOMPARE(colorAt(21), QColor(Qt::red));
}

void PanelContentViewTest::whatTheContentLeavesFreeStaysFree()
{
    QCOMPARE(colorAt(60, 5).alpha(), 0);
    m_view->setContentOffset(40);
    QCOMPARE(colorAt(60, 5).alpha(), 0);
}

void PanelContentViewTest::slidingPaintsTheContentOnlyOnce()
{
    m_view->setContentOffset(112);
    QCoreApplication::processEvents();
    const int before = m_content->paintings;
    for (const double offset : { 80.0, 60.0, 40.0, 20.0 }) {
        m_view->setContentOffset(offset);
        QCoreApplication::processEvents();
    }
    QCOMPARE(m_content->paintings, before);
}

void PanelContentViewTest::theContentStaysWhereDragsFindIt()
{
    m_view->setContentOffset(60);
    QCOMPARE(m_content->geometry(), m_view->rect());
    QCOMPARE(m_view->childAt(5, 150), static_cast<QWidget*>(m_content));
}

void PanelContentViewTest::atRestTheContentPaintsItselfAgain()
{
    m_view->setContentOffset(60);
    QCoreApplication::processEvents();
    const int before = m_content->paintings;
    m_view->setContentOffset(0);
    QTRY_VERIFY(m_content->paintings > before);
    QCOMPARE(colorAt(1), QColor(Qt::red));
}

void PanelContentViewTest::aWindowThatIsShownForTheSlideBeginsEmpty()
{
    m_view->hide();
    m_view->setContentOffset(112);
    m_view->resize(112, 400);
    m_view->show();
    QCOMPARE(colorAt(1).alpha(), 0);
    QCOMPARE(colorAt(110).alpha(), 0);
    m_view->setContentOffset(10);
    QCOMPARE(colorAt(11), QColor(Qt::red));
    m_view->setContentOffset(0);
    QCOMPARE(colorAt(1), QColor(Qt::red));
}

QTEST_MAIN(PanelContentViewTest)
#include "PanelContentViewTest.moc"

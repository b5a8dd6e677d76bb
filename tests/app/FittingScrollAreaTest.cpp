#include "FittingScrollArea.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include <memory>

using namespace nookle;

/// A form where the display is narrower than it would be.
class FittingScrollAreaTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void aFormThatFitsHasItsOwnSize();
    void aNarrowFormBreaksItsLines();
    void aNarrowFormThatIsTooHighHasOneBar();
    void controlsThatNeedMoreWidthAreScrolled();
    void whatLiesBehindTheLowerBarCanBeScrolledTo();

private:
    /// Shows the form in the size that it asks for, where it gets no more than `largest`.
    void show(const QSize& largest);
    /// Whether the user sees the control in its whole width.
    [[nodiscard]] bool isWholeWidthSeen(const QWidget& control) const
    {
        return control.visibleRegion().boundingRect().width() == control.width();
    }

    QCheckBox* m_toggle = nullptr;
    QLabel* m_sentence = nullptr;
    QWidget* m_form = nullptr;
    std::unique_ptr<FittingScrollArea> m_area;
};

namespace {

constexpr int formWidth = 440;
constexpr int large = 4000;

/// As wide as the settings are.
class Form final : public QWidget {
public:
    [[nodiscard]] QSize sizeHint() const override { return { formWidth, layout()->totalHeightForWidth(formWidth) }; }
};

} // namespace

void FittingScrollAreaTest::init()
{
    m_form = new Form;
    m_toggle = new QCheckBox(QStringLiteral("A control with some words"));
    m_sentence = new QLabel(QStringLiteral("A sentence about it. ").repeated(12));
    m_sentence->setWordWrap(true);
    auto* rows = new QVBoxLayout(m_form);
    rows->addWidget(m_toggle);
    rows->addWidget(m_sentence);
    m_area = std::make_unique<FittingScrollArea>(m_form);
}

void FittingScrollAreaTest::show(const QSize& largest)
{
    m_area->setLargestSize(largest);
    m_area->resize(m_area->sizeHint());
    m_area->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_area.get()));
}

void FittingScrollAreaTest::aFormThatFitsHasItsOwnSize()
{
    show({ large, large });
    QCOMPARE(m_area->size(), m_form->sizeHint());
    QVERIFY(!m_area->horizontalScrollBar()->isVisible() && !m_area->verticalScrollBar()->isVisible());
}

void FittingScrollAreaTest::aNarrowFormBreaksItsLines()
{
    constexpr int narrow = 300;
    show({ narrow, large });
    QCOMPARE(m_area->width(), narrow);
    QCOMPARE(m_form->width(), narrow);
    QVERIFY(m_area->height() > m_form->sizeHint().height());
    QVERIFY(!m_area->horizontalScrollBar()->isVisible() && !m_area->verticalScrollBar()->isVisible());
    QVERIFY(isWholeWidthSeen(*m_toggle) && isWholeWidthSeen(*m_sentence));
}

void FittingScrollAreaTest::aNarrowFormThatIsTooHighHasOneBar()
{
    constexpr QSize small(300, 100);
    show(small);
    QCOMPARE(m_area->size(), small);
    QVERIFY(m_area->verticalScrollBar()->isVisible());
    QVERIFY(!m_area->horizontalScrollBar()->isVisible());
    QVERIFY(isWholeWidthSeen(*m_toggle) && isWholeWidthSeen(*m_sentence));
}

void FittingScrollAreaTest::controlsThatNeedMoreWidthAreScrolled()
{
    m_toggle->setText(QStringLiteral("A control with very many words ").repeated(3));
    constexpr int narrow = 200;
    show({ narrow, large });
    QCOMPARE(m_area->width(), narrow);
    QVERIFY(m_area->horizontalScrollBar()->isVisible());
    QVERIFY(!m_area->verticalScrollBar()->isVisible());
    QVERIFY(!isWholeWidthSeen(*m_toggle));
    QCOMPARE(m_area->horizontalScrollBar()->maximum(), m_form->width() - narrow);
    QVERIFY(m_form->width() >= m_toggle->sizeHint().width());
}

void FittingScrollAreaTest::whatLiesBehindTheLowerBarCanBeScrolledTo()
{
    m_toggle->setText(QStringLiteral("A control with very many words ").repeated(3));
    constexpr int narrow = 200;
    show({ narrow, large });
    const QSize whole = m_area->size();
    const int lowerBar = m_area->horizontalScrollBar()->sizeHint().height();
    QCOMPARE(whole.height(), m_form->height() + lowerBar);
    // High enough for the form, but not for the bar below it.
    m_area->resize(whole - QSize(0, 1));
    QVERIFY(m_area->verticalScrollBar()->isVisible());
    QCOMPARE(m_area->verticalScrollBar()->maximum(), 1);
    m_area->resize(whole);
    QVERIFY(!m_area->verticalScrollBar()->isVisible());
    QVERIFY(m_area->horizontalScrollBar()->isVisible());
}

QTEST_MAIN(FittingScrollAreaTest)
#include "FittingScrollAreaTest.moc"

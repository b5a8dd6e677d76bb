#include "ToolTipPlace.h"

#include <QApplication>
#include <QScreen>
#include <QTest>
#include <QToolTip>

#include <algorithm>

using namespace nookle;

class ToolTipPlaceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theToolTipStandsWhereItCoversNothingOfInterest_data();
    void theToolTipStandsWhereItCoversNothingOfInterest();
    void aPartOfThePanelShowsItsToolTipThere();
    void theNextPartShowsItsOwn();
    void withoutATextNothingIsShown();
};

namespace {

inline constexpr int panelWidth = 112;

/// The tool tip that is shown, if any.
[[nodiscard]] QWidget* shownToolTip()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto tip = std::find_if(windows.begin(), windows.end(), [](const QWidget* each) {
        return each->windowType() == Qt::ToolTip && each->isVisible();
    });
    return tip == windows.end() ? nullptr : *tip;
}

/// A panel at the right edge of the display, with two parts, the second at its bottom.
struct Panel {
    Panel()
    {
        const QRect screen = window.screen()->availableGeometry();
        window.setGeometry(screen.right() + 1 - panelWidth, screen.top(), panelWidth, screen.height());
        upper.setGeometry(6, 100, panelWidth - 12, 80);
        lower.setGeometry(6, screen.height() - 80, panelWidth - 12, 80);
        window.show();
    }

    QWidget window{ nullptr, Qt::FramelessWindowHint };
    QWidget upper{ &window };
    QWidget lower{ &window };
};

} // namespace

void ToolTipPlaceTest::theToolTipStandsWhereItCoversNothingOfInterest_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QRect>("described");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<QPoint>("origin");
    const QRect upper(6, 100, 100, 80);
    const QRect lowest(6, 640, 100, 60);
    for (const QPoint origin : { QPoint(1168, 24), QPoint(0, 0) }) {
        const auto row = [&](const char* name) -> QTestData& {
            return QTest::addRow("%s, the panel at %d", name, origin.x());
        };
        row("beside the panel") << QSize(200, 20) << upper << QPoint(-200, 129) << origin;
        row("as wide as the room beside it") << QSize(1168, 20) << upper << QPoint(-1168, 129) << origin;
        row("too wide for the room") << QSize(1169, 20) << upper << QPoint(-1057, 180) << origin;
        row("too wide for the display") << QSize(1300, 20) << upper << QPoint(-1168, 180) << origin;
        row("at the bottom") << QSize(200, 90) << lowest << QPoint(-200, 622) << origin;
        row("at the bottom, too wide") << QSize(1200, 20) << lowest << QPoint(-1088, 620) << origin;
        row("at the top") << QSize(200, 90) << QRect(80, 6, 22, 22) << QPoint(-200, 0) << origin;
    }
}

void ToolTipPlaceTest::theToolTipStandsWhereItCoversNothingOfInterest()
{
    QFETCH(const QSize, size);
    QFETCH(const QRect, described);
    QFETCH(const QPoint, place);
    QFETCH(const QPoint, origin);
    const QRect panel(origin, QSize(panelWidth, 712));
    const QRect part = described.translated(origin);
    const QPoint found = toolTipPlace(size, part, panel, 1280);
    QCOMPARE(found - origin, place);
    QVERIFY(!QRect(found, size).intersects(part));
}

void ToolTipPlaceTest::aPartOfThePanelShowsItsToolTipThere()
{
    Panel panel;
    panel.upper.setToolTip(QStringLiteral("/a/path"));
    QVERIFY(showToolTip(panel.upper));
    const QWidget* tip = shownToolTip();
    QVERIFY(tip);
    QCOMPARE(QToolTip::text(), QStringLiteral("/a/path"));
    QCOMPARE(tip->x() + tip->width(), panel.window.x());
    QCOMPARE(tip->y() + tip->height() / 2, panel.upper.mapToGlobal(panel.upper.rect().center()).y());
    // The pointer moves on within the part.
    QVERIFY(showToolTip(panel.upper));
    QCOMPARE(shownToolTip(), tip);
}

void ToolTipPlaceTest::theNextPartShowsItsOwn()
{
    Panel panel;
    panel.upper.setToolTip(QStringLiteral("a name"));
    panel.lower.setToolTip(QStringLiteral("a name"));
    QVERIFY(showToolTip(panel.upper));
    const QPoint place = shownToolTip()->pos();
    QVERIFY(showToolTip(panel.lower));
    QVERIFY(shownToolTip());
    QVERIFY(shownToolTip()->y() > place.y());
    QCOMPARE(shownToolTip()->x() + shownToolTip()->width(), panel.window.x());
}

void ToolTipPlaceTest::withoutATextNothingIsShown()
{
    Panel panel;
    QVERIFY(!showToolTip(panel.upper));
    QVERIFY(!shownToolTip());
}

QTEST_MAIN(ToolTipPlaceTest)
#include "ToolTipPlaceTest.moc"

#include "OutlinedStyle.h"

#include "DesktopLook.h"
#include "DesktopPalette.h"

#include <QApplication>
#include <QPainter>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTest>
#include <QToolTip>

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <memory>

using namespace nookle;

namespace {

inline constexpr QRect area(0, 0, 120, 40);

[[nodiscard]] QPalette palette(bool isDark)
{
    return desktopPalette(QPalette(QColor(0xef, 0xef, 0xef)), DesktopLook{ .isDark = isDark });
}

[[nodiscard]] QImage painted(const QPalette& colors, const std::function<void(QPainter&)>& paint)
{
    QImage image(area.size(), QImage::Format_RGB32);
    image.fill(colors.color(QPalette::Window));
    QPainter painter(&image);
    paint(painter);
    return image;
}

[[nodiscard]] QImage primitive(const QStyle& style, QStyle::PrimitiveElement element, const QPalette& colors)
{
    return painted(colors, [&](QPainter& painter) {
        QStyleOption option;
        option.rect = area;
        option.palette = colors;
        option.state = QStyle::State_Enabled | QStyle::State_Off;
        style.drawPrimitive(element, &option, &painter);
    });
}

[[nodiscard]] int lightnessAt(const QImage& image, int x, int y)
{
    return image.pixelColor(x, y).lightness();
}

inline constexpr int visible = 25;

} // namespace

class OutlinedStyleTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void darkMenusAndCheckBoxesHaveAnEdge_data();
    void darkMenusAndCheckBoxesHaveAnEdge();
    void lightOnesLookLikeTheToolkits();
    void linesOfDarkMenusCanBeSeen();
    void toolTipsHaveAFineEdgeOnTheirOwnGround();
    void toolTipsHaveTheProgramsColours();
    void textsThatAreNotAvailableAreDrawnOnce();
    void buttonsLeaveRoomBesideTheirText();
    void anotherStyleThatWasChosenStays();
};

void OutlinedStyleTest::darkMenusAndCheckBoxesHaveAnEdge_data()
{
    QTest::addColumn<int>("element");
    QTest::newRow("menu") << int(QStyle::PE_PanelMenu);
    QTest::newRow("check box") << int(QStyle::PE_IndicatorCheckBox);
}

void OutlinedStyleTest::darkMenusAndCheckBoxesHaveAnEdge()
{
    QFETCH(const int, element);
    const OutlinedStyle style;
    const QImage image = primitive(style, static_cast<QStyle::PrimitiveElement>(element), palette(true));
    const int inside = lightnessAt(image, area.center().x(), area.center().y());
    for (const QPoint& edge : { QPoint(30, 0), QPoint(30, 39), QPoint(0, 20), QPoint(119, 20) })
        QVERIFY(lightnessAt(image, edge.x(), edge.y()) - inside > visible);
}

void OutlinedStyleTest::lightOnesLookLikeTheToolkits()
{
    const OutlinedStyle style;
    const std::unique_ptr<QStyle> own(QStyleFactory::create(QStringLiteral("fusion")));
    for (const auto element : { QStyle::PE_PanelMenu, QStyle::PE_IndicatorCheckBox })
        QCOMPARE(primitive(style, element, palette(false)), primitive(*own, element, palette(false)));
}

void OutlinedStyleTest::linesOfDarkMenusCanBeSeen()
{
    const OutlinedStyle style;
    const QImage image = painted(palette(true), [&](QPainter& painter) {
        QStyleOptionMenuItem option;
        option.rect = area;
        option.palette = palette(true);
        option.menuItemType = QStyleOptionMenuItem::Separator;
        style.drawControl(QStyle::CE_MenuItem, &option, &painter);
    });
    QVERIFY(lightnessAt(image, 30, area.center().y()) - lightnessAt(image, 30, 4) > visible);
}

void OutlinedStyleTest::toolTipsHaveAFineEdgeOnTheirOwnGround()
{
    const OutlinedStyle style;
    for (const bool isDark : { true, false }) {
        const QPalette colors = palette(isDark);
        const QImage image = primitive(style, QStyle::PE_PanelTipLabel, colors);
        const int ground = colors.color(QPalette::ToolTipBase).lightness();
        const int edge = lightnessAt(image, 30, 0);
        QCOMPARE(lightnessAt(image, 30, 20), ground);
        QVERIFY(std::abs(edge - ground) > visible);
        // Weaker than the text.
        QVERIFY(std::abs(edge - ground) < std::abs(colors.color(QPalette::ToolTipText).lightness() - ground) / 2);
    }
}

void OutlinedStyleTest::toolTipsHaveTheProgramsColours()
{
    QApplication::setStyle(new OutlinedStyle);
    QApplication::setPalette(palette(true));
    QToolTip::setPalette(QPalette(Qt::yellow));
    QToolTip::showText({ 10, 10 }, QStringLiteral("A tip"));
    const QWidgetList windows = QApplication::topLevelWidgets();
    const auto tip =
        std::find_if(windows.begin(), windows.end(), [](QWidget* each) { return each->inherits("QTipLabel"); });
    QVERIFY(tip != windows.end());
    QCOMPARE((*tip)->palette().color(QPalette::ToolTipBase), palette(true).color(QPalette::Base));
    QCOMPARE((*tip)->palette().color(QPalette::ToolTipText), palette(true).color(QPalette::WindowText));
    delete *tip;
}

void OutlinedStyleTest::textsThatAreNotAvailableAreDrawnOnce()
{
    const OutlinedStyle style;
    const QPalette colors = palette(true);
    const QImage image = painted(colors, [&](QPainter& painter) {
        QStyleOptionMenuItem option;
        option.rect = area;
        option.palette = colors;
        option.palette.setCurrentColorGroup(QPalette::Disabled);
        option.palette.setColor(QPalette::Light, Qt::green);
        option.state = QStyle::State_None;
        option.text = QStringLiteral("I I I");
        style.drawControl(QStyle::CE_MenuItem, &option, &painter);
    });
    int drawn = 0;
    for (int y = 0; y < area.height(); ++y) {
        for (int x = 0; x < area.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            drawn += color.lightness() > colors.color(QPalette::Window).lightness() + visible ? 1 : 0;
            QVERIFY(color.green() < 200);
        }
    }
    QVERIFY(drawn > 0);
}

void OutlinedStyleTest::buttonsLeaveRoomBesideTheirText()
{
    QPushButton button(QStringLiteral("A button with some words"));
    OutlinedStyle style;
    button.setStyle(&style);
    const int text = button.fontMetrics().horizontalAdvance(button.text());
    QVERIFY(button.sizeHint().width() - text >= 16);
}

void OutlinedStyleTest::anotherStyleThatWasChosenStays()
{
    QApplication::setStyle(QStringLiteral("windows"));
    OutlinedStyle::useInstead();
    QVERIFY(!qobject_cast<OutlinedStyle*>(QApplication::style()));
    QApplication::setStyle(QStringLiteral("fusion"));
    OutlinedStyle::useInstead();
    QVERIFY(qobject_cast<OutlinedStyle*>(QApplication::style()));
}

QTEST_MAIN(OutlinedStyleTest)
#include "OutlinedStyleTest.moc"

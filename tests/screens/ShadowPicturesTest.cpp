#include "ShadowPictures.h"

#include <QPainter>
#include <QTest>

#include <cmath>

using namespace nookle;

namespace {

inline constexpr int radius = 12;

/// How far the middle of that pixel of the upper left corner lies outside of the panel's round corner.
[[nodiscard]] double distance(const ShadowPictures& shadow, int x, int y)
{
    return std::hypot(shadow.corner - x - 0.5, shadow.corner - y - 0.5) - radius;
}

[[nodiscard]] int opacity(const QImage& picture, int x, int y)
{
    return qAlpha(picture.pixel(x, y));
}

/// A picture with the shadow of a panel at that place, and nothing else.
[[nodiscard]] QImage drawn(const ShadowPictures& shadow, const QSize& size, const QRect& panel)
{
    QImage picture(size, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    shadow.draw(painter, panel);
    return picture;
}

} // namespace

class ShadowPicturesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theShadowIsStrongestAtThePanelAndEndsAtItsExtent();
    void aPixelThatThePanelCoversInPartHasTheRestOfTheShadow();
    void nothingLiesBelowThePanel();
    void theShadowIsDrawnAroundThePanelWithoutAGap();
    void noPixelOfThePanelIsDrawnOn();
    void whatDoesNotFitIsCutOff();
};

void ShadowPicturesTest::theShadowIsStrongestAtThePanelAndEndsAtItsExtent()
{
    const ShadowPictures shadow(radius);
    for (int x = 1; x < shadow.extent; ++x)
        QVERIFY(opacity(shadow.left, x, 0) >= opacity(shadow.left, x - 1, 0));
    QVERIFY(opacity(shadow.left, shadow.extent - 1, 0) > 60);
    QCOMPARE(opacity(shadow.left, 0, 0), 0);
    QCOMPARE(opacity(shadow.above, 0, shadow.extent - 1), opacity(shadow.left, shadow.extent - 1, 0));
    QCOMPARE(opacity(shadow.below, 0, 0), opacity(shadow.left, shadow.extent - 1, 0));
}

void ShadowPicturesTest::aPixelThatThePanelCoversInPartHasTheRestOfTheShadow()
{
    const ShadowPictures shadow(radius);
    const int strongest = opacity(shadow.left, shadow.extent - 1, 0);
    int halves = 0;
    for (int y = shadow.extent; y < shadow.corner; ++y) {
        for (int x = shadow.extent; x < shadow.corner; ++x) {
            const double outside = distance(shadow, x, y);
            if (std::abs(outside) > 0.2)
                continue;
            ++halves;
            const int expected = static_cast<int>(std::lround(strongest * (outside + 0.5)));
            QVERIFY(std::abs(opacity(shadow.upperLeft, x, y) - expected) <= strongest / 10);
        }
    }
    QVERIFY(halves > 0);
}

void ShadowPicturesTest::nothingLiesBelowThePanel()
{
    const ShadowPictures shadow(radius);
    for (int y = shadow.extent; y < shadow.corner; ++y) {
        for (int x = shadow.extent; x < shadow.corner; ++x) {
            if (distance(shadow, x, y) < -0.5)
                QCOMPARE(opacity(shadow.upperLeft, x, y), 0);
        }
    }
}

void ShadowPicturesTest::theShadowIsDrawnAroundThePanelWithoutAGap()
{
    const ShadowPictures shadow(radius);
    const QRect panel(shadow.extent, shadow.extent, 60, 200);
    const QImage picture = drawn(shadow, QSize(shadow.extent + 60, 200 + 2 * shadow.extent), panel);
    for (int y = panel.top() + radius; y <= panel.bottom() - radius; ++y) {
        for (int x = 0; x < shadow.extent; ++x)
            QCOMPARE(opacity(picture, x, y), opacity(shadow.left, x, 0));
    }
    for (int x = panel.left() + radius; x <= panel.right(); ++x) {
        for (int y = 0; y < shadow.extent; ++y) {
            QCOMPARE(opacity(picture, x, y), opacity(shadow.above, 0, y));
            QCOMPARE(opacity(picture, x, panel.bottom() + 1 + y), opacity(shadow.below, 0, y));
        }
    }
    QCOMPARE(picture.copy(0, 0, shadow.corner, shadow.corner), shadow.upperLeft);
    QCOMPARE(picture.copy(0, picture.height() - shadow.corner, shadow.corner, shadow.corner), shadow.lowerLeft);
}

void ShadowPicturesTest::noPixelOfThePanelIsDrawnOn()
{
    const ShadowPictures shadow(radius);
    const QRect panel(shadow.extent, shadow.extent, 60, 200);
    const QImage picture = drawn(shadow, QSize(shadow.extent + 60, 200 + 2 * shadow.extent), panel);
    for (int y = panel.top(); y <= panel.bottom(); ++y) {
        for (int x = panel.left() + radius; x <= panel.right(); ++x)
            QCOMPARE(opacity(picture, x, y), 0);
    }
    for (int y = panel.top() + radius; y <= panel.bottom() - radius; ++y) {
        for (int x = panel.left(); x <= panel.right(); ++x)
            QCOMPARE(opacity(picture, x, y), 0);
    }
}

void ShadowPicturesTest::whatDoesNotFitIsCutOff()
{
    const ShadowPictures shadow(radius);
    constexpr int above = 10;
    const QImage whole = drawn(shadow, QSize(60, 300), QRect(shadow.extent, shadow.extent, 60, 200));
    const QImage cut = drawn(shadow, QSize(60, 300), QRect(shadow.extent, above, 60, 200));
    QCOMPARE(cut.copy(0, 0, 60, 200), whole.copy(0, shadow.extent - above, 60, 200));
}

QTEST_APPLESS_MAIN(ShadowPicturesTest)
#include "ShadowPicturesTest.moc"

#include "ShadowPictures.h"

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

} // namespace

class ShadowPicturesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theShadowIsStrongestAtThePanelAndEndsAtItsExtent();
    void aPixelThatThePanelCoversInPartHasTheRestOfTheShadow();
    void nothingLiesBelowThePanel();
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

QTEST_APPLESS_MAIN(ShadowPicturesTest)
#include "ShadowPicturesTest.moc"

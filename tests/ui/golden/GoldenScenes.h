#pragma once

#include <QImage>
#include <QString>

#include <functional>
#include <vector>

namespace nookle {

struct ShelfFixture;

/// One state of the shelf that a picture is kept of.
struct GoldenScene {
    QString name;
    /// Brings the shelf into its state.
    std::function<void(ShelfFixture&)> prepare;
    bool isDark = false;
    /// Pixels to a point.
    double scale = 1;
};

[[nodiscard]] std::vector<GoldenScene> goldenScenes();

/// Chooses the fonts, colours and icons that the pictures are drawn with on every machine. Call it once, before the
/// first scene is drawn.
void prepareGoldenLook();

[[nodiscard]] QImage drawScene(const GoldenScene& scene);

/// A picture for each thing that is drawn in the scene, without that thing; and at the end one that has them all.
[[nodiscard]] std::vector<QImage> drawSceneWithoutOneThing(const GoldenScene& scene);

} // namespace nookle

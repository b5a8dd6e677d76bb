#pragma once

#include <QImage>
#include <QString>

#include <vector>

namespace nookle::e2e {

/// A moving picture as an animated PNG, of which each frame holds only what has changed.
class AnimatedPng {
public:
    /// Adds a frame of the size of the first one, shown for that long. One that looks like the last one only prolongs
    /// it.
    void add(const QImage& picture, int milliseconds);

    /// Plays for ever. False when the file cannot be written.
    [[nodiscard]] bool save(const QString& path) const;

private:
    struct Frame {
        QImage picture;
        QPoint place;
        int milliseconds = 0;
    };

    QImage m_last;
    std::vector<Frame> m_frames;
};

} // namespace nookle::e2e

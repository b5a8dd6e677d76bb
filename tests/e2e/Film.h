#pragma once

#include "AnimatedPng.h"
#include "XScreen.h"
#include "XcbOwned.h"

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QString>

namespace nookle::e2e {

/// Films the screen while the mouse moves. The server leaves the pointer out of its pictures, and some programs make
/// what they drag a part of it: it is drawn over each frame as the server has it.
class Film {
public:
    Film(XScreen& screen, const QByteArray& display);

    void moveTo(const QPoint& end);
    void rest(int milliseconds);
    /// A long look at what is there.
    void hold(int milliseconds) { take(milliseconds); }

    [[nodiscard]] bool save(const QString& path) const { return m_film.save(path); }

private:
    void take(int milliseconds);
    void drawPointer(QImage& picture) const;

    XScreen& m_screen;
    XcbConnection m_connection;
    AnimatedPng m_film;
};

} // namespace nookle::e2e

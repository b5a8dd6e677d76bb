#pragma once

#include <QByteArray>
#include <QPoint>

#include <memory>

namespace nookle::e2e {

/// The user's hand on the mouse and the keyboard of a compositor. Points are those of the whole desktop.
class Hand {
public:
    enum class Button { left = 0x110, right = 0x111 };
    enum class Key {
        escape = 1,
        o = 24,
        enter = 28,
        control = 29,
        k = 37,
        shift = 42,
        c = 46,
        v = 47,
        n = 49,
        up = 103,
        down = 108,
        super = 125,
        menu = 127
    };

    /// Takes hold of the mouse of the compositor that listens on that socket, whichever way it offers; null when it
    /// offers none. `desktop` is the size of the whole desktop.
    [[nodiscard]] static std::unique_ptr<Hand> tryTake(const QByteArray& socketPath, const QPoint& desktop);
    virtual ~Hand() = default;

    /// The desktop has another size from now on.
    virtual void setDesktop(const QPoint& /*desktop*/) {}

    /// Moves the pointer there in steps, at a hand's pace.
    void moveTo(const QPoint& point);
    /// Moves the pointer there in one step, and does not wait for the compositor.
    void sendTo(const QPoint& point);
    /// Moves the pointer a little and back, as a hand that rests does.
    void tremble();
    void press(Button button = Button::left) { pushButton(button, true); }
    void release(Button button = Button::left) { pushButton(button, false); }
    void click(Button button = Button::left);
    /// Turns the wheel towards the user.
    void turnWheel(int notches);
    /// Moves fingers over a touchpad, so that what is below the pointer moves up by so many points, each movement by
    /// `step` points. The fingers stay there.
    void glide(int points, double step = 1);
    void type(Key key);
    void typeWith(Key modifier, Key key);
    /// A click with the left button while a key is down, as long as a hand needs for it.
    void clickWith(Key modifier);

    [[nodiscard]] QPoint position() const { return m_position; }

protected:
    // Each returns once the compositor has handled it.
    virtual void placePointer(const QPoint& point) = 0;
    virtual void pushButton(Button button, bool isDown) = 0;
    virtual void pushKey(Key key, bool isDown) = 0;
    /// The only one that may return before.
    virtual void sendPointer(const QPoint& point) { placePointer(point); }
    /// A wheel's notch goes with the points that compositors take it for.
    virtual void scroll(double points, int notches) = 0;

private:
    QPoint m_position;
};

} // namespace nookle::e2e

#pragma once

#include "XcbOwned.h"

#include <QByteArray>
#include <QImage>
#include <QPoint>
#include <QRect>

#include <array>
#include <optional>
#include <vector>

#include <xcb/xcb.h>

namespace nookle::e2e {

/// A window that is on the screen, with its place on the root window.
struct XWindow {
    xcb_window_t id = 0;
    QByteArray windowClass;
    QRect frame;
    bool isMapped = false;
};

/// What a user has in front of him: the windows, the picture, and the mouse. Movements are relative and go through
/// XTEST, because only those reach programs that listen for raw input.
class XScreen {
public:
    explicit XScreen(const QByteArray& display);

    [[nodiscard]] std::vector<XWindow> windows() const;

    /// The mapped window of that class and width; any width if none is given.
    [[nodiscard]] std::optional<XWindow> window(const QByteArray& windowClass, std::optional<int> width = {}) const;

    [[nodiscard]] QImage picture(const QRect& area) const;
    [[nodiscard]] QImage picture() const { return picture(geometry()); }
    [[nodiscard]] QRect geometry() const;
    /// Fills the background of the screen. Compositing managers find it as the picture that programs leave there.
    void setWallpaper(QRgb color);
    [[nodiscard]] xcb_window_t focus() const;

    /// Whether a program holds the selection of that name.
    [[nodiscard]] bool hasOwner(const QByteArray& selection) const;
    /// Whether the root window has that property.
    [[nodiscard]] bool rootHas(const QByteArray& property) const;

    /// The numbers of a property of the root window; none when it has no such property.
    [[nodiscard]] std::vector<std::uint32_t> rootNumbers(const QByteArray& property) const;
    void setRootNumbers(const QByteArray& property, const std::vector<std::uint32_t>& numbers);
    void removeFromRoot(const QByteArray& property);

    void place(const XWindow& window, const QRect& frame);

    /// Becomes the owner of a selection, as a program does that begins a drag.
    void claim(const QByteArray& selection);
    /// Leaves a selection without an owner.
    void disown(const QByteArray& selection);
    /// Shows a dock that reserves that much of the top of the screen.
    void showDock(int height);

    [[nodiscard]] QPoint pointer() const;
    /// The innermost window that the pointer is in, of all that stand there the one on top.
    [[nodiscard]] xcb_window_t windowUnderPointer() const;
    /// Moves the pointer there in steps, at a hand's pace.
    void moveTo(const QPoint& point);
    /// Moves it in a single step.
    void moveBy(const QPoint& step);
    void press(std::uint8_t button = 1);
    void release(std::uint8_t button = 1);
    /// What the first buttons of the mouse stand for, as a left-handed user changes it.
    void mapButtons(const std::vector<std::uint8_t>& buttons);

    /// The key that makes that symbol, for example `XScreen::control` or 'd'.
    void pressKey(xcb_keysym_t symbol);
    void releaseKey(xcb_keysym_t symbol);
    [[nodiscard]] xcb_keycode_t keyFor(xcb_keysym_t symbol) const;
    /// Whether a program holds that key together with Control, Alt and Super.
    [[nodiscard]] bool isShortcutHeld(xcb_keycode_t key) const;
    /// The keys of each modifier, from Shift on.
    [[nodiscard]] std::array<std::vector<xcb_keycode_t>, 8> modifierKeys() const;
    void setModifierKeys(const std::array<std::vector<xcb_keycode_t>, 8>& keys);
    static constexpr xcb_keysym_t control = 0xffe3;
    static constexpr xcb_keysym_t alt = 0xffe9;
    static constexpr xcb_keysym_t super = 0xffeb;
    static constexpr xcb_keysym_t numLock = 0xff7f;
    static constexpr xcb_keysym_t enter = 0xff0d;
    static constexpr xcb_keysym_t capsLock = 0xffe5;
    static constexpr xcb_keysym_t up = 0xff52;

    /// Presses there and moves until the program below has begun a drag; the button stays down. A program that was not
    /// ready for the press gets another one. False when none begins.
    [[nodiscard]] bool beginDrag(const QPoint& at);

private:
    void addWindows(xcb_window_t parent, std::vector<XWindow>& found) const;
    [[nodiscard]] std::optional<XWindow> describe(xcb_window_t id) const;
    [[nodiscard]] xcb_window_t makeWindow(const QRect& frame);
    [[nodiscard]] xcb_atom_t atom(const QByteArray& name) const;
    void fake(std::uint8_t type, std::uint8_t detail, const QPoint& by = {});

    XcbConnection m_connection;
    xcb_window_t m_root = 0;
};

} // namespace nookle::e2e

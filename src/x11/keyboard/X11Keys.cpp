#include "X11Keys.h"

#include <algorithm>
#include <iterator>
#include <string_view>

namespace nookle {

namespace {

// The numbers are those of the keyboard symbols of the X protocol.
constexpr std::uint32_t symbolOfF1 = 0xffbe;

struct NamedKey {
    Qt::Key key;
    std::uint32_t symbol;
};

constexpr NamedKey namedKeys[] = {
    { Qt::Key_Backspace, 0xff08 }, { Qt::Key_Tab, 0xff09 },    { Qt::Key_Return, 0xff0d }, { Qt::Key_Pause, 0xff13 },
    { Qt::Key_Escape, 0xff1b },    { Qt::Key_Home, 0xff50 },   { Qt::Key_Left, 0xff51 },   { Qt::Key_Up, 0xff52 },
    { Qt::Key_Right, 0xff53 },     { Qt::Key_Down, 0xff54 },   { Qt::Key_PageUp, 0xff55 }, { Qt::Key_PageDown, 0xff56 },
    { Qt::Key_End, 0xff57 },       { Qt::Key_Print, 0xff61 },  { Qt::Key_Insert, 0xff63 }, { Qt::Key_Menu, 0xff67 },
    { Qt::Key_Enter, 0xff8d },     { Qt::Key_Delete, 0xffff },
};

/// A row of keys on most keyboards, from left to right.
struct Row {
    std::string_view letters;
    std::uint8_t firstPlace;
};

constexpr Row rows[] = { { "1234567890", 10 }, { "qwertyuiop", 24 }, { "asdfghjkl", 38 }, { "zxcvbnm", 52 } };

[[nodiscard]] std::uint8_t placeOf(char letter)
{
    for (const Row& row : rows) {
        const auto place = row.letters.find(letter);
        if (place != std::string_view::npos)
            return static_cast<std::uint8_t>(row.firstPlace + place);
    }
    return 0;
}

} // namespace

std::optional<X11Key> x11Key(Qt::Key key)
{
    // Both the toolkit and the X protocol have the numbers of ASCII here, for a letter that of the capital and of the
    // small one.
    if (key >= Qt::Key_A && key <= Qt::Key_Z) {
        const char letter = static_cast<char>(key - Qt::Key_A + 'a');
        return X11Key{ static_cast<std::uint32_t>(letter), placeOf(letter) };
    }
    if (key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde)
        return X11Key{ static_cast<std::uint32_t>(key), placeOf(static_cast<char>(key)) };
    if (key >= Qt::Key_F1 && key <= Qt::Key_F35)
        return X11Key{ symbolOfF1 + static_cast<std::uint32_t>(key - Qt::Key_F1), 0 };
    const auto* const named = std::find_if(std::begin(namedKeys), std::end(namedKeys),
                                           [key](const NamedKey& each) { return each.key == key; });
    return named == std::end(namedKeys) ? std::nullopt : std::optional(X11Key{ named->symbol, 0 });
}

} // namespace nookle

#include "ShortcutText.h"

#include <QKeySequence>
#include <QStringList>

#include <algorithm>
#include <iterator>

namespace nookle {

namespace {

struct ModifierName {
    QLatin1String name;
    Qt::KeyboardModifier modifier;
};

constexpr ModifierName modifierNames[] = {
    { QLatin1String("Ctrl"), Qt::ControlModifier }, { QLatin1String("Control"), Qt::ControlModifier },
    { QLatin1String("Alt"), Qt::AltModifier },      { QLatin1String("Super"), Qt::MetaModifier },
    { QLatin1String("Meta"), Qt::MetaModifier },
};

[[nodiscard]] std::optional<Qt::KeyboardModifier> modifier(const QString& name)
{
    const auto* const known = std::find_if(std::begin(modifierNames), std::end(modifierNames), [&](const auto& each) {
        return name.compare(each.name, Qt::CaseInsensitive) == 0;
    });
    return known == std::end(modifierNames) ? std::nullopt : std::optional(known->modifier);
}

/// Modifiers and locks, which are held or switched and not pressed.
[[nodiscard]] bool isModifier(Qt::Key key)
{
    return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || (key >= Qt::Key_Super_L && key <= Qt::Key_Hyper_R)
        || key == Qt::Key_AltGr;
}

[[nodiscard]] std::optional<Qt::Key> key(const QString& name)
{
    const QKeySequence sequence = QKeySequence::fromString(name, QKeySequence::PortableText);
    if (sequence.count() != 1 || sequence[0].keyboardModifiers() != Qt::NoModifier
        || sequence[0].key() == Qt::Key_unknown || isModifier(sequence[0].key()))
        return std::nullopt;
    return sequence[0].key();
}

} // namespace

std::optional<QKeyCombination> shortcutKeys(const QString& text)
{
    QStringList names = text.split(QLatin1Char('+'));
    const std::optional<Qt::Key> pressed = key(names.takeLast().trimmed());
    Qt::KeyboardModifiers held;
    for (const QString& name : std::as_const(names)) {
        const auto known = modifier(name.trimmed());
        if (!known)
            return std::nullopt;
        held |= *known;
    }
    if (!pressed || held == Qt::NoModifier)
        return std::nullopt;
    return QKeyCombination(held, *pressed);
}

} // namespace nookle

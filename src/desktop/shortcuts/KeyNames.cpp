#include "KeyNames.h"

#include <QKeySequence>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>
#include <optional>

namespace nookle {

namespace {

struct NamedModifier {
    QLatin1String name;
    Qt::KeyboardModifier modifier;
};

/// How GTK and GNOME name them, in small letters.
constexpr std::array modifiers{
    NamedModifier{ QLatin1String("control"), Qt::ControlModifier },
    NamedModifier{ QLatin1String("ctrl"), Qt::ControlModifier },
    NamedModifier{ QLatin1String("primary"), Qt::ControlModifier },
    NamedModifier{ QLatin1String("alt"), Qt::AltModifier },
    NamedModifier{ QLatin1String("shift"), Qt::ShiftModifier },
    NamedModifier{ QLatin1String("super"), Qt::MetaModifier },
};

/// The modifiers of a text like "<Control><Alt>". None when one is unknown.
[[nodiscard]] std::optional<Qt::KeyboardModifiers> heldModifiers(const QString& names)
{
    Qt::KeyboardModifiers held;
    for (const QString& name : names.toLower().split(QLatin1Char('>'), Qt::SkipEmptyParts)) {
        const auto* found = std::find_if(modifiers.begin(), modifiers.end(),
                                         [&](const auto& each) { return name.mid(1) == each.name; });
        if (found == modifiers.end())
            return std::nullopt;
        held |= found->modifier;
    }
    return held;
}

/// "Page Up" for "Page_Up", "D" for "d".
[[nodiscard]] QString keyName(QString name)
{
    name.replace(QLatin1Char('_'), QLatin1Char(' '));
    return name.left(1).toUpper() + name.mid(1);
}

/// Captures the modifiers and the key.
[[nodiscard]] const QRegularExpression& writtenForPrograms()
{
    static const QRegularExpression written(QStringLiteral("((?:<\\w+>)+)(\\w+)"));
    return written;
}

/// None unless `names` are one combination.
[[nodiscard]] std::optional<QKeyCombination> combination(const QString& names)
{
    const QKeySequence keys = QKeySequence::fromString(names, QKeySequence::NativeText);
    const bool isKnown = keys.count() == 1 && keys[0].key() != Qt::Key_unknown;
    return isKnown ? std::optional(keys[0]) : std::nullopt;
}

} // namespace

QString keyNames(Qt::KeyboardModifiers held, const QString& key)
{
    const QKeyCombination others(held & ~Qt::KeyboardModifiers(Qt::MetaModifier), Qt::Key_A);
    const QString super = held.testFlag(Qt::MetaModifier) ? QStringLiteral("Super+") : QString();
    return QKeySequence(others).toString(QKeySequence::NativeText).chopped(1) + super + key;
}

QString readableKeys(const QString& description)
{
    QStringList alternatives;
    for (auto found = writtenForPrograms().globalMatch(description); found.hasNext();) {
        const QRegularExpressionMatch keys = found.next();
        const auto held = heldModifiers(keys.captured(1));
        if (!held)
            return description;
        alternatives.append(keyNames(*held, keyName(keys.captured(2))));
    }
    return alternatives.isEmpty() ? description : alternatives.join(QStringLiteral(", "));
}

std::optional<QKeyCombination> describedCombination(const QString& description)
{
    const QRegularExpressionMatch written = writtenForPrograms().match(description);
    if (!written.hasMatch())
        return combination(description);
    const auto held = heldModifiers(written.captured(1));
    const auto key = combination(keyName(written.captured(2)));
    if (!held || !key)
        return std::nullopt;
    return QKeyCombination(*held, key->key());
}

} // namespace nookle

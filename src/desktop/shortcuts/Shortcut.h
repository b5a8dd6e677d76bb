#pragma once

#include <QKeyCombination>
#include <QString>

namespace nookle {

/// What this program wants of a service that gives shortcuts.
struct Shortcut {
    /// The same at each start, because services keep the user's choice under it. Only letters, digits and hyphens.
    QString id;
    QKeyCombination keys;
    /// What the keys do, for the user.
    QString description;
};

} // namespace nookle

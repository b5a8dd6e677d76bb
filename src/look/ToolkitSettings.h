#pragma once

#include <QByteArray>
#include <QHash>
#include <QVariant>

#include <functional>

namespace nookle {

/// The settings that the desktop hands to the programs of all toolkits, by the names of the XSETTINGS registry. Main
/// thread only.
class ToolkitSettings {
public:
    /// Strings and integers.
    using Values = QHash<QByteArray, QVariant>;

    virtual ~ToolkitSettings() = default;

    /// Empty where no program provides settings.
    [[nodiscard]] virtual const Values& values() const = 0;

    /// Called when a value has changed. Set by the user of this object.
    std::function<void()> onChanged;
};

} // namespace nookle

#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace nookle {

/// The page of the desktop's settings that lists the programs which start by themselves. Main thread only.
class StartupSettings {
public:
    /// Opens the page of the running desktop, or of any that is installed; failing that, `folder` in the file manager.
    void open(const QString& folder) const;

    /// The command line of the page for the desktops that run, which are named as XDG_CURRENT_DESKTOP does; none when
    /// no such program is found.
    [[nodiscard]] static std::optional<QStringList> command(const QStringList& desktops);
};

} // namespace nookle

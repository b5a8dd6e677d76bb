#pragma once

#include <QString>
#include <QStringList>

#include <optional>

namespace nookle {

/// The page of the desktop's settings that lists the programs that start at login. Main thread only.
class LoginProgramsPage {
public:
    /// Opens the page of the running desktop, or of any desktop that is installed. If there is none, opens `folder` in
    /// the file manager.
    void open(const QString& folder) const;

    /// The command line that opens the page of one of `desktops` (names as in XDG_CURRENT_DESKTOP), or else of any
    /// installed desktop; none when no such program is installed.
    [[nodiscard]] static std::optional<QStringList> command(const QStringList& desktops);
};

} // namespace nookle

#pragma once

#include <QUrl>

namespace nookle {

/// Opens files and addresses with the desktop's programs. Main thread only.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Opens a file or an address in the program that the user has chosen for it. Refuses an address that
    /// `refusedScheme` refuses, with one log line.
    virtual void open(const QUrl& url) = 0;

    /// Shows the file, selected, in the desktop's file manager.
    virtual void reveal(const QUrl& file) = 0;
};

} // namespace nookle

#pragma once

#include <QList>
#include <QUrl>

namespace nookle {

/// Opens files and addresses with the desktop's programs. Main thread only.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Opens a file or an address in the program that the user has chosen for it. Refuses an address that
    /// `refusedScheme` refuses, with one log line.
    virtual void open(const QUrl& url) = 0;

    /// Shows the files, selected, in the desktop's file manager: all in one request.
    virtual void reveal(const QList<QUrl>& files) = 0;
};

} // namespace nookle

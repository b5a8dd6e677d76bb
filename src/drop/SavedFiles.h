#pragma once

#include "MainQueue.h"

#include <QList>
#include <QUrl>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

namespace nookle {

/// Waits for the files that a source saves into a folder after its drop. Main thread only.
class SavedFiles final {
public:
    /// Calls `arrived` once, with everything that is in the folder when it has stopped changing, by name; or with
    /// nothing when a minute has passed and the folder is still empty, which is then removed.
    SavedFiles(const QUrl& folder, MainQueue& queue, std::function<void(QList<QUrl>)> arrived);
    /// Removes the folder if nothing has come.
    ~SavedFiles();
    SavedFiles(const SavedFiles&) = delete;
    SavedFiles& operator=(const SavedFiles&) = delete;

    /// Whether `arrived` has been called.
    [[nodiscard]] bool isDone() const { return !m_timer; }

private:
    /// The size of each file, by its name.
    using Listing = std::map<std::string, std::uintmax_t>;

    [[nodiscard]] Listing list() const;
    void removeEmptyFolder() const;
    void look();
    void finish(const Listing& files);

    QUrl m_folder;
    std::function<void(QList<QUrl>)> m_arrived;
    Listing m_last;
    int m_looks = 0;
    std::unique_ptr<Cancellable> m_timer;
};

} // namespace nookle

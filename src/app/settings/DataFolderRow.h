#pragma once

#include "FolderWatch.h"

#include <QUrl>
#include <QWidget>

#include <functional>
#include <memory>

class QPushButton;

namespace nookle {

/// A line that says where the shelf keeps its files, with a button that opens the folder. Main thread only.
class DataFolderRow final : public QWidget {
    Q_OBJECT

public:
    struct Folder {
        QUrl url;
        /// Shows a folder in the desktop's file manager.
        std::function<void(const QUrl&)> open;
        /// Must outlive the row.
        FolderWatch& watch;
    };

    explicit DataFolderRow(Folder folder);

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void updateButton();

    Folder m_folder;
    QPushButton* m_button;
    /// Of the folder above, while the row is shown and the folder is not there yet.
    std::unique_ptr<FolderSubscription> m_appearance;
};

} // namespace nookle

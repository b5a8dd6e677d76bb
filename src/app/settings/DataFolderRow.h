#pragma once

#include <QUrl>
#include <QWidget>

#include <functional>

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
    };

    explicit DataFolderRow(Folder folder);

protected:
    void showEvent(QShowEvent* event) override;

private:
    Folder m_folder;
    QPushButton* m_button;
};

} // namespace nookle

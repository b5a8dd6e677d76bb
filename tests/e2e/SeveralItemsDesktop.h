#pragma once

#include "ShelfDesktop.h"

#include <QByteArray>
#include <QPoint>
#include <QString>

#include <vector>

namespace nookle::e2e {

/// What the tests have that drag several items at once: five files from three folders, and how they and texts get onto
/// the shelf and out of it. Each operation that returns a Boolean is a piece of a test, which ends where one says
/// false.
class SeveralItemsDesktop : protected ShelfDesktop {
protected:
    struct TestFile {
        const char* folder;
        const char* name;
        const char* content;
    };

    SeveralItemsDesktop() = default;
    ~SeveralItemsDesktop() = default;

    /// In the order in which they are put on the shelf.
    [[nodiscard]] static const std::vector<TestFile>& files();
    [[nodiscard]] QByteArray addressOf(const TestFile& file) const;

    /// Makes the files anew, and starts an empty shelf.
    [[nodiscard]] bool startShelf();

    [[nodiscard]] bool putFilesOnShelf();
    /// Puts a text, or a link if it is an address, on top of what is there.
    [[nodiscard]] bool putTextOnShelf(const QByteArray& text);
    [[nodiscard]] bool showShelf();

    /// The handle that stands for all items.
    [[nodiscard]] QPoint handle() const;
    [[nodiscard]] QPoint tile(int row) const;
    void clickWithControl(const QPoint& place);
    /// Drags to a place, and lingers there as a hand does: nothing shows that a program has answered the last movement.
    [[nodiscard]] bool dragTo(const QPoint& from, const QPoint& to);

    [[nodiscard]] QString home(const QString& path) const { return m_desktop->home(path); }
    [[nodiscard]] QByteArray bytesOf(const QString& path) const;

private:
    [[nodiscard]] static QString pathOf(const TestFile& file);
};

} // namespace nookle::e2e

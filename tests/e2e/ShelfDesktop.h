#pragma once

#include "FileManager.h"
#include "PrivateDesktop.h"
#include "Shelf.h"

#include <QByteArray>
#include <QPoint>
#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace nookle::e2e {

/// What most tests of the shelf have: a private desktop, the shelf on it, and programs to drag from and to. Each
/// operation that returns a Boolean is a piece of a test, which ends where one says false.
class ShelfDesktop {
protected:
    ShelfDesktop() = default;
    ~ShelfDesktop() = default;

    /// Makes the desktop and a file "note one.txt" in its folder "files"; the shelf does not run yet.
    [[nodiscard]] bool setUpDesktop(const PrivateDesktop::Options& options);
    void tearDownDesktop();
    /// For a test that failed: saves the screen under that name, and tells it with the log.
    void tellFailure(const QString& picture);

    [[nodiscard]] XScreen& screen() { return *m_screen; }
    /// The right edge of the display under test: of the left one, where there are two.
    [[nodiscard]] int rightEdge() const { return m_rightEdge; }
    [[nodiscard]] bool panelIsGone() const { return !m_shelf->panel(); }
    /// Whether a menu of the shelf is on the screen.
    [[nodiscard]] bool menuIsOpen() const;
    /// Presses the keys that show and hide the shelf.
    void pressShortcut();

    /// Opens the window of another program, which replaces the one before, and returns it.
    [[nodiscard]] std::optional<XWindow> openPeer(const QStringList& arguments,
                                                  const QString& program = qEnvironmentVariable("NOOKLE_PEER"));

    /// Drops a payload of another program on the shelf.
    [[nodiscard]] bool offerToShelf(const QByteArray& payload, const QString& type = QStringLiteral("text/uri-list"));
    /// The same with the other program in a mode of its own.
    [[nodiscard]] bool dragPeerToShelf(const QStringList& arguments);
    /// Brings what is being dragged over the shelf, which comes out for it and says that it would take it.
    [[nodiscard]] bool hoverOverShelf();
    /// Drops what is being dragged on the shelf.
    [[nodiscard]] bool dropOnShelf();

    void dragBetween(const QPoint& from, const QPoint& to);
    /// What the other program that takes drops has written to the file "received".
    [[nodiscard]] QByteArray received() const;

    std::unique_ptr<PrivateDesktop> m_desktop;
    std::unique_ptr<Shelf> m_shelf;
    std::unique_ptr<FileManager> m_files;
    std::unique_ptr<Program> m_peer;

private:
    XScreen* m_screen = nullptr;
    int m_rightEdge = 0;
};

} // namespace nookle::e2e

#pragma once

#include "ShelfProgram.h"
#include "WaylandDesktop.h"

#include <QByteArray>
#include <QPoint>
#include <QString>
#include <QStringList>

#include <memory>

namespace nookle::e2e {

/// What the tests of the shelf on Wayland have: a private desktop, the shelf on it, and a program to drag from and to.
/// Each operation that returns a Boolean is a piece of a test, which ends where one says false.
class WaylandShelfDesktop {
protected:
    WaylandShelfDesktop() = default;
    ~WaylandShelfDesktop() = default;

    /// Which compositor the tests run under: the variable NOOKLE_ENVIRONMENT names it.
    [[nodiscard]] static WaylandDesktop::Compositor compositor();

    /// Whether something tells there that a drag begins, so that nothing is at the edge before.
    [[nodiscard]] static bool announcesDrags();

    /// Makes the desktop and a file "note one.txt" in its folder "files"; the shelf does not run yet.
    [[nodiscard]] bool setUpDesktop(WaylandDesktop::Compositor compositor, int displays = 1);
    [[nodiscard]] bool setUpDesktop(const WaylandDesktop::Options& options);
    void tearDownDesktop();
    /// For a test that failed: saves the screen under that name, and tells it with the logs.
    void tellFailure(const QString& picture);
    /// Saves what a user sees under that name, in the folder that NOOKLE_PICTURES names; without one, nothing.
    void keepPicture(const QString& name) const;

    /// Starts the shelf, and returns once it has started wholly.
    [[nodiscard]] bool startShelf();
    /// Shows the shelf of the program that runs.
    [[nodiscard]] bool showShelf();
    /// Calls the shelf over the bus, and waits for the reply.
    [[nodiscard]] bool callShelf(const QStringList& method) const;
    /// Calls one of its actions.
    [[nodiscard]] bool activate(const QString& action) const;

    [[nodiscard]] Hand& hand() { return m_desktop->hand(); }
    [[nodiscard]] QString home(const char* path) const { return m_desktop->home(QLatin1String(path)); }
    /// What is in a file of the home folder.
    [[nodiscard]] QByteArray content(const char* path) const;
    /// The list of addresses that stands for the file "note one.txt".
    [[nodiscard]] QByteArray fileList() const;

    /// Opens the window of another program, which replaces the one before, and brings the pointer there.
    [[nodiscard]] bool openPeer(const QStringList& arguments);
    /// The same with any program that tells what Peer tells.
    [[nodiscard]] bool openProgram(const QString& path, const QStringList& arguments);
    /// From now on the other programs are X11 programs.
    void runPeersOnX11();
    /// Opens a window of GTK 4, off which the file "note one.txt" can be dragged, and brings the pointer there.
    [[nodiscard]] bool openGtkSource();
    /// Opens a window of GTK 4, which takes `kind` of what is dropped.
    void openGtkTarget(const QString& kind);
    /// How often the other program has said that line.
    [[nodiscard]] qsizetype timesSaid(const QByteArray& line);
    /// Whether it says that line, once more than the times given.
    [[nodiscard]] bool peerSays(const QByteArray& line, qsizetype times = 0);

    /// Begins to drag from another program in one of its modes.
    [[nodiscard]] bool beginDrag(const QStringList& peerArguments);
    /// The same with a payload that it offers.
    [[nodiscard]] bool beginDrag(const QByteArray& payload, const QString& type = QStringLiteral("text/uri-list"));
    /// The same from a program of GTK 4: the file "note one.txt".
    [[nodiscard]] bool beginDragFromGtk();
    /// The same from the program that is open, which may have been dragged from before. The pointer is in the middle.
    [[nodiscard]] bool beginDragOfPeer();
    /// Brings what is being dragged to a display's right edge, where the shelf takes it.
    [[nodiscard]] bool dragToEdge(int edge = WaylandDesktop::displaySize.width());
    /// Whether the shelf would take what is being dragged from the other program, once more than the times given; true
    /// where that program is not told.
    [[nodiscard]] bool isTaken(qsizetype times);
    /// Drops a payload of another program on the shelf, and waits until it is saved.
    [[nodiscard]] bool putOnShelf(const QByteArray& payload, const QString& type = QStringLiteral("text/uri-list"));
    /// Drags the first tile, or what stands at a place, to the other program, which writes to the file "received".
    [[nodiscard]] bool dragTileToPeer() { return dragToPeer(firstTile()); }
    [[nodiscard]] bool dragToPeer(const QPoint& from);

    /// Whether the panel has come out at the right edge of a display, wholly. This and the next one are true where the
    /// compositor gives no pictures: the tests for it are those that the other program can judge.
    [[nodiscard]] bool isPanelOut(int edge = WaylandDesktop::displaySize.width()) const;
    [[nodiscard]] bool isPanelGone(int edge = WaylandDesktop::displaySize.width()) const;
    /// Whether the panel shows that it takes what is dragged over it. Only where the compositor gives pictures.
    [[nodiscard]] bool isDropTarget() const;
    /// Whether a menu covers what is left of the panel.
    [[nodiscard]] bool isMenuOpen() const;

    /// In the other program's window, far from the shelf.
    static constexpr QPoint middle{ 400, 400 };
    /// The middle of the first tile's preview.
    [[nodiscard]] QPoint firstTile() const { return onPanel(56, 84); }
    /// The button that keeps the panel on the screen.
    [[nodiscard]] QPoint pin() const { return onPanel(17, 41); }
    /// The handle that stands for all items.
    [[nodiscard]] QPoint handle() const { return onPanel(41, 41); }

    std::unique_ptr<WaylandDesktop> m_desktop;
    std::unique_ptr<ShelfProgram> m_shelf;
    std::unique_ptr<Program> m_peer;

private:
    [[nodiscard]] QPoint onPanel(int fromRight, int fromTop) const
    {
        return { WaylandDesktop::displaySize.width() - fromRight, m_desktop->topBar() + fromTop };
    }
};

} // namespace nookle::e2e

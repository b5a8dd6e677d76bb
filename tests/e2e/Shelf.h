#pragma once

#include "PrivateDesktop.h"

#include <QByteArray>
#include <QJsonObject>
#include <QList>
#include <QPoint>

#include <memory>
#include <optional>

namespace nookle::e2e {

/// The program under test on a private desktop.
class Shelf {
public:
    /// Nothing runs before `start`.
    Shelf(PrivateDesktop& desktop, QString program);

    /// Starts it, and returns once it has started wholly.
    [[nodiscard]] bool start(const QStringList& arguments = {});

    /// Ends it as a session does.
    [[nodiscard]] bool stop();

    /// Starts it a second time, which shows the shelf of the first, or adds the files of its arguments there; its exit
    /// code.
    [[nodiscard]] int startAgain(const QStringList& arguments = {});

    [[nodiscard]] bool isRunning() const { return m_process->isRunning(); }

    /// Whether it ends by itself, as it should.
    [[nodiscard]] bool hasEnded();

    /// The panel while it is on the screen.
    [[nodiscard]] std::optional<XWindow> panel() const;

    /// Whether the panel has come to rest with its right edge there.
    [[nodiscard]] bool isAtRest(int rightEdge) const;

    /// Whether it shows that it would take what is being dragged over it.
    [[nodiscard]] bool isDropTarget() const;

    /// The middle of the preview of the first tile.
    [[nodiscard]] QPoint firstTile() const;

    /// The items of the saved index; none while there is no index that can be read.
    [[nodiscard]] QList<QJsonObject> savedItems() const;

    /// The names of the saved items that are files.
    [[nodiscard]] QStringList savedFileNames() const;

    [[nodiscard]] qint64 processId() const { return m_process->processId(); }

    [[nodiscard]] QByteArray log() { return m_process->log(); }

private:
    PrivateDesktop& m_desktop;
    QString m_program;
    std::unique_ptr<Program> m_process;
};

} // namespace nookle::e2e

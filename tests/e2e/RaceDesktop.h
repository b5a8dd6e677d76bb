#pragma once

#include "AssistiveClient.h"
#include "Waiting.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QUrl>

#include <memory>

namespace nookle::e2e {

/// What the tests of races have, whether `Desktop` is `ShelfDesktop` or `WaylandShelfDesktop`: files for the shelf, of
/// which the desktop has made the first, and an assistive program, which can remove items without the mouse.
template <typename Desktop> class RaceDesktop : protected Desktop {
protected:
    RaceDesktop() = default;
    ~RaceDesktop() = default;

    void endRace()
    {
        // The shelf takes part in the assistant's bus until it ends.
        this->m_shelf.reset();
        m_assistant.reset();
        this->tearDownDesktop();
    }

    [[nodiscard]] QString path(const QString& name) const { return this->m_desktop->home(inFiles(name)); }
    [[nodiscard]] QByteArray address(const QString& name) const { return QUrl::fromLocalFile(path(name)).toEncoded(); }
    void makeFile(const QString& name) const { this->m_desktop->writeFile(inFiles(name), "other words"); }
    /// Where the first file is after it was put into the Trash.
    [[nodiscard]] QString trashed() const
    {
        return this->m_desktop->home(QStringLiteral("data/Trash/files/") + firstName);
    }

    [[nodiscard]] bool shelfHas(const QStringList& names) const
    {
        return waitFor([&] { return this->m_shelf->savedFileNames() == names; });
    }
    /// Puts the first two files on the shelf, the first on top.
    [[nodiscard]] bool addFiles() const
    {
        return this->m_shelf->startAgain({ path(firstName), path(secondName) }) == 0
            && shelfHas({ firstName, secondName });
    }

    /// Only before the shelf starts.
    [[nodiscard]] bool startAssistant()
    {
        m_assistant = AssistiveClient::tryCreate(busAddress());
        return m_assistant != nullptr;
    }
    [[nodiscard]] bool removeByAssistant(const QString& name) const
    {
        return m_assistant->actOnListed(name, QStringLiteral("Remove"));
    }
    [[nodiscard]] QString busAddress() const
    {
        return this->m_desktop->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    }

    const QString firstName = QStringLiteral("note one.txt");
    const QString secondName = QStringLiteral("note two.txt");
    const QString thirdName = QStringLiteral("note three.txt");

private:
    [[nodiscard]] static QString inFiles(const QString& name) { return QString(QStringLiteral("files/") + name); }

    std::unique_ptr<AssistiveClient> m_assistant;
};

} // namespace nookle::e2e

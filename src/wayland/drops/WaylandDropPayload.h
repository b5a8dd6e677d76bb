#pragma once

#include "BridgedDrop.h"
#include "DropPayload.h"

#include <QHash>

#include <chrono>
#include <functional>
#include <memory>

class QMimeData;

namespace nookle {

/// A drop as the toolkit hands it over. The toolkit reads a format for as long as bytes come, so a child process has it
/// read, within the same limits as on other display servers. Of what an X11 program drags nothing is read before it is
/// dropped, which `expect` tells.
class WaylandDropPayload final : public DropPayload {
public:
    using Clock = std::chrono::steady_clock;

    /// The toolkit's connection to the compositor.
    struct Connection {
        /// Sends the compositor what it has not been told yet, and says whether that is everything: what is left would
        /// be sent by the child, too.
        std::function<bool()> flush;
        /// Leads to the compositor.
        int socket = -1;
    };

    enum class Source { waylandProgram, x11Program };

    struct Limits {
        /// No data comes after that. Some sources abandon a drop that takes longer.
        Clock::time_point deadline = Clock::now() + std::chrono::milliseconds(900);
        /// For one format, in bytes.
        qsizetype size = qsizetype{ 256 } * 1024 * 1024;
    };

    /// `data` must outlive this object.
    WaylandDropPayload(const QMimeData& data, Connection connection, Source source, const Limits& limits);
    ~WaylandDropPayload() override;

    [[nodiscard]] QStringList formats() const override;
    void expect(const QStringList& formats) const override;
    [[nodiscard]] QByteArray data(const QString& format) const override;
    /// Always empty: Wayland has no way to suggest a name.
    [[nodiscard]] QByteArray suggestedName() const override { return {}; }
    /// Always false: Wayland has no way to ask for it.
    [[nodiscard]] bool canSave() const override { return false; }
    [[nodiscard]] SaveAnswer save(const QByteArray& path) const override;

private:
    /// What the source delivers, which is asked for only once.
    [[nodiscard]] QByteArray delivered(const QString& format) const;
    [[nodiscard]] QByteArray read(const QString& format) const;
    [[nodiscard]] ReadingChild::Work workFor(const QString& format) const;
    /// Whether a page's script may have chosen the address.
    [[nodiscard]] bool isOfPage() const;
    /// Waits for a compositor that takes nothing now.
    [[nodiscard]] bool canAsk() const;

    const QMimeData& m_data;
    Connection m_connection;
    Source m_source;
    Limits m_limits;
    /// Null for a Wayland program's drop, and before what is dragged has been dropped.
    mutable std::unique_ptr<BridgedDrop> m_bridged;
    mutable QHash<QString, QByteArray> m_delivered;
};

} // namespace nookle

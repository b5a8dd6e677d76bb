#pragma once

#include "DropPayload.h"

#include <QHash>

#include <chrono>
#include <functional>

class QMimeData;

namespace nookle {

/// A drop as the toolkit hands it over. The toolkit reads a format for as long as bytes come, so a child process has it
/// read, within the same limits as on other display servers.
class WaylandDropPayload final : public DropPayload {
public:
    using Clock = std::chrono::steady_clock;

    struct Limits {
        /// No data comes after that. Some sources abandon a drop that takes longer.
        Clock::time_point deadline = Clock::now() + std::chrono::milliseconds(900);
        /// For one format, in bytes.
        qsizetype size = qsizetype{ 256 } * 1024 * 1024;
    };

    /// `flush` sends the compositor what it has not been told yet, and says whether that is everything: what is left
    /// would be sent by the child, too. `data` must outlive this object.
    WaylandDropPayload(const QMimeData& data, std::function<bool()> flush, const Limits& limits);

    [[nodiscard]] QStringList formats() const override;
    [[nodiscard]] QByteArray data(const QString& format) const override;
    /// Always empty: Wayland has no way to suggest a name.
    [[nodiscard]] QByteArray suggestedName() const override { return {}; }
    /// Always false: Wayland has no way to ask for it.
    [[nodiscard]] bool canSave() const override { return false; }
    [[nodiscard]] SaveAnswer save(const QByteArray& path) const override;

private:
    /// What the source delivers, which is asked for only once.
    [[nodiscard]] QByteArray delivered(const QString& format) const;

    const QMimeData& m_data;
    std::function<bool()> m_flush;
    Limits m_limits;
    mutable QHash<QString, QByteArray> m_delivered;
};

} // namespace nookle

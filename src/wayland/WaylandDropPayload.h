#pragma once

#include "DropPayload.h"

class QMimeData;

namespace nookle {

/// A drop as the toolkit hands it over. The toolkit waits at most a second for one format. Once the formats that were
/// read have taken 0.9 seconds together, no more are read.
class WaylandDropPayload final : public DropPayload {
public:
    /// `data` must outlive this object.
    explicit WaylandDropPayload(const QMimeData& data);

    [[nodiscard]] QStringList formats() const override;
    [[nodiscard]] QByteArray data(const QString& format) const override;
    /// Always empty: Wayland has no way to suggest a name.
    [[nodiscard]] QByteArray suggestedName() const override { return {}; }
    /// Always false: Wayland has no way to ask for it.
    [[nodiscard]] bool canSave() const override { return false; }
    [[nodiscard]] SaveAnswer save(const QByteArray& path) const override;

private:
    const QMimeData& m_data;
    mutable qint64 m_spentMilliseconds = 0;
};

} // namespace nookle

#pragma once

#include "DropPayload.h"

class QMimeData;

namespace nookle {

/// A drop as the toolkit hands it over; borrows its data. The limits are the toolkit's.
class MimeDropPayload final : public DropPayload {
public:
    explicit MimeDropPayload(const QMimeData& data);

    [[nodiscard]] QStringList formats() const override;
    [[nodiscard]] QByteArray data(const QString& format) const override;
    [[nodiscard]] QByteArray suggestedName() const override { return {}; }
    [[nodiscard]] bool canSave() const override { return false; }
    [[nodiscard]] bool save(const QByteArray& /*path*/) const override { return false; }

private:
    const QMimeData& m_data;
};

} // namespace nookle

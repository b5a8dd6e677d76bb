#pragma once

#include "DropPayload.h"

#include <QMimeData>

namespace nookle {

/// A drop as the toolkit hands it over; borrows its data. The limits are the toolkit's.
class MimeDropPayload final : public DropPayload {
public:
    explicit MimeDropPayload(const QMimeData& data)
        : m_data(data)
    {
    }

    [[nodiscard]] QStringList formats() const override { return m_data.formats(); }
    [[nodiscard]] QByteArray data(const QString& format) const override { return m_data.data(format); }
    [[nodiscard]] QByteArray suggestedName() const override { return {}; }
    [[nodiscard]] bool canSave() const override { return false; }
    [[nodiscard]] SaveAnswer save(const QByteArray& /*path*/) const override { return SaveAnswer::refused; }

private:
    const QMimeData& m_data;
};

} // namespace nookle

#pragma once

#include "DragPayload.h"

#include <QMimeData>

#include <memory>

namespace nookle {

/// Offers a payload in the toolkit's class for drag data.
class PayloadMimeData final : public QMimeData {
    Q_OBJECT

public:
    explicit PayloadMimeData(std::shared_ptr<const DragPayload> payload);

    [[nodiscard]] QStringList formats() const override;
    [[nodiscard]] bool hasFormat(const QString& format) const override;

protected:
    [[nodiscard]] QVariant retrieveData(const QString& format, QMetaType preferredType) const override;

private:
    std::shared_ptr<const DragPayload> m_payload;
};

} // namespace nookle

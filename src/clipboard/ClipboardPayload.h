#pragma once

#include "DropPayload.h"

#include <QElapsedTimer>
#include <QMimeData>
#include <QPointer>

namespace nookle {

/// The present content of the clipboard or the selection. Must not outlive the turn of the event loop in which
/// it is made. Delivers nothing more once reading has taken too long.
class ClipboardPayload final : public DropPayload {
public:
    /// `data` may be null.
    explicit ClipboardPayload(const QMimeData* data);

    [[nodiscard]] QStringList formats() const override { return m_formats; }
    [[nodiscard]] QByteArray data(const QString& format) const override;
    [[nodiscard]] QByteArray suggestedName() const override { return {}; }
    [[nodiscard]] bool canSave() const override { return false; }
    [[nodiscard]] SaveAnswer save(const QByteArray& /*path*/) const override { return SaveAnswer::refused; }

private:
    QElapsedTimer m_sinceStart;
    /// Null once another program has taken the clipboard.
    QPointer<const QMimeData> m_data;
    QStringList m_formats;
};

} // namespace nookle

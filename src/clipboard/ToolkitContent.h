#pragma once

#include "Pasteboard.h"

#include <QElapsedTimer>
#include <QMimeData>
#include <QObject>
#include <QPointer>

namespace nookle {

/// The content of the clipboard or the selection as the toolkit delivers it, which blocks while it waits for the owner.
/// Delivers nothing more once that has taken too long.
class ToolkitContent final : public QObject, public ClipboardContent {
    Q_OBJECT

public:
    /// `data` is the toolkit's; it may be null.
    explicit ToolkitContent(const QMimeData* data);

    void askFormats(Formats answer) override;
    void askData(const QString& format, Bytes answer) override;

private:
    [[nodiscard]] QByteArray data(const QString& format) const;

    QElapsedTimer m_sinceStart;
    /// Null once another program has taken the clipboard.
    QPointer<const QMimeData> m_data;
};

} // namespace nookle

#pragma once

#include "Pasteboard.h"

#include <QMimeData>
#include <QObject>
#include <QPointer>

#include <chrono>
#include <functional>

namespace nookle {

/// The content of the clipboard or the selection as the toolkit delivers it, which blocks while it waits for the owner.
/// Delivers nothing more once that has taken too long.
class ToolkitContent final : public QObject, public ClipboardContent {
    Q_OBJECT

public:
    using Clock = std::chrono::steady_clock;
    /// Has the toolkit deliver one format. Empty when that takes beyond the deadline, as far as it can be ended.
    using Read = std::function<QByteArray(const QMimeData& data, const QString& format, Clock::time_point deadline)>;

    /// `data` is the toolkit's; it may be null. By default nothing ends a read before the toolkit does.
    explicit ToolkitContent(const QMimeData* data, Read read = &readToTheEnd);

    void askFormats(Formats answer) override;
    void askData(const QString& format, Bytes answer) override;

private:
    [[nodiscard]] static QByteArray readToTheEnd(const QMimeData& data, const QString& format,
                                                 Clock::time_point deadline);
    [[nodiscard]] QByteArray data(const QString& format) const;

    Read m_read;
    Clock::time_point m_deadline;
    /// Null once another program has taken the clipboard.
    QPointer<const QMimeData> m_data;
};

} // namespace nookle

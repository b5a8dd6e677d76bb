#pragma once

#include "DropPayload.h"
#include "Pasteboard.h"

#include <QHash>

#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace nookle {

/// Reads the clipboard or the selection by the rules of a drop, without waiting for the program that owns it. Main
/// thread only.
class ContentReader final {
public:
    using Open = std::function<std::unique_ptr<ClipboardContent>()>;
    using Look = std::function<void(const DropPayload& payload)>;

    /// `open` opens the present content. `look` reads from it what is needed, and has no other effect: it is called
    /// again after each format that has arrived. `done` is called once all that `look` reads is there. It must not
    /// destroy the reader.
    ContentReader(Open open, Look look, Look done);

    /// Reads the present content. While an earlier reading is under way, that one is finished first; however often this
    /// is called meanwhile, one more follows.
    void read();

private:
    /// What has arrived so far.
    class Arrived final : public DropPayload {
    public:
        explicit Arrived(QStringList formats)
            : m_formats(std::move(formats))
        {
        }

        void insert(const QString& format, const QByteArray& bytes) { m_bytes.insert(format, bytes); }
        /// The first format that was read since the last call and has not arrived.
        [[nodiscard]] std::optional<QString> takeMissing() { return std::exchange(m_missing, std::nullopt); }

        [[nodiscard]] QStringList formats() const override { return m_formats; }
        [[nodiscard]] QByteArray data(const QString& format) const override;
        [[nodiscard]] QByteArray suggestedName() const override { return {}; }
        [[nodiscard]] bool canSave() const override { return false; }
        [[nodiscard]] SaveAnswer save(const QByteArray& /*path*/) const override { return SaveAnswer::refused; }

    private:
        QStringList m_formats;
        QHash<QString, QByteArray> m_bytes;
        mutable std::optional<QString> m_missing;
    };

    void lookAt(std::shared_ptr<Arrived> arrived);

    Open m_open;
    Look m_look;
    Look m_done;
    /// Null while nothing is read.
    std::unique_ptr<ClipboardContent> m_content;
    bool m_isWantedAgain = false;
};

} // namespace nookle

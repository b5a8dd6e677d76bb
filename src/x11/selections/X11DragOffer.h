#pragma once

#include "DragPayload.h"
#include "X11PropertyWriter.h"
#include "X11SelectionWatch.h"
#include "XcbAtoms.h"

#include <QAbstractNativeEventFilter>
#include <QByteArray>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

struct xcb_selection_request_event_t;

namespace nookle {

/// Answers requests for the payload of this program's drag, during the drag and after it, in place of the toolkit. The
/// toolkit does not answer a request with an unknown timestamp or for a format that was not offered. Some receivers
/// send such requests and wait for an answer. Main thread only.
class X11DragOffer final : private QAbstractNativeEventFilter {
public:
    /// `connection` is the toolkit's connection.
    explicit X11DragOffer(xcb_connection_t* connection, const X11PropertyWriter::Limits& limits = {});
    ~X11DragOffer() override;

    /// The next drag of this program carries `payload`. Until it begins, receivers still get the payload of the last
    /// one.
    void begin(std::shared_ptr<const DragPayload> payload);

private:
    struct Answer {
        std::uint32_t type = 0;
        QByteArray bytes;
    };

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    void ownerChanged();
    void answer(const xcb_selection_request_event_t& request);
    [[nodiscard]] bool convert(std::uint32_t window, std::uint32_t target, std::uint32_t property);
    [[nodiscard]] bool convertPairs(std::uint32_t window, std::uint32_t property);
    [[nodiscard]] std::vector<std::uint32_t> targets() const;
    [[nodiscard]] std::optional<Answer> answerFor(std::uint32_t window, std::uint32_t target) const;
    [[nodiscard]] std::optional<Answer> textFor(std::uint32_t window, std::uint32_t target) const;

    xcb_connection_t* m_connection;
    X11PropertyWriter::Limits m_limits;
    XcbAtoms m_atoms;
    X11SelectionWatch m_watch;
    std::unique_ptr<X11PropertyWriter> m_writer;
    /// The payload of a drag that has not begun yet.
    std::shared_ptr<const DragPayload> m_next;
    std::shared_ptr<const DragPayload> m_payload;
    /// The atoms of the payload's formats.
    std::vector<std::pair<std::uint32_t, QString>> m_formats;
};

} // namespace nookle

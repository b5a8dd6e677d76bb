#pragma once

#include "DropPayload.h"
#include "XcbAtoms.h"

#include <QAbstractNativeEventFilter>

#include <cstdint>
#include <memory>
#include <vector>

struct xcb_client_message_event_t;
struct xcb_connection_t;

namespace nookle {

class X11SelectionReader;

/// Follows a drag of another program over this program's windows, from the X events. Must outlive the payloads that it
/// returns. Main thread only.
class X11Drops final : private QAbstractNativeEventFilter {
public:
    explicit X11Drops(xcb_connection_t* connection);
    ~X11Drops() override;

    /// A payload of the drag that is over a window, or was just dropped there. Its data can be read during 0.9 seconds
    /// from this call: some sources abandon a drop that takes longer.
    [[nodiscard]] std::unique_ptr<DropPayload> payload();

private:
    class Payload;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    void enter(const xcb_client_message_event_t& event);
    [[nodiscard]] const QStringList& formats();
    [[nodiscard]] QByteArray suggestedName() const;
    /// Tells the source the address of the file to save to.
    void suggestPlace(const QByteArray& address);
    [[nodiscard]] X11SelectionReader* reader();

    xcb_connection_t* m_connection;
    XcbAtoms m_atoms;

    std::uint32_t m_source = 0;
    std::uint32_t m_time = 0;
    /// The formats in the source's announcement, at most three. With `m_hasMore`, its window has the whole list.
    std::vector<std::uint32_t> m_announced;
    bool m_hasMore = false;
    QStringList m_formats;
    std::unique_ptr<X11SelectionReader> m_reader;
};

} // namespace nookle

#pragma once

#include "XcbConnection.h"

#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace nookle {

/// Delivers selections to windows of other programs: small ones at once, large ones in pieces. The next piece is sent
/// when the receiver has taken the last one. Uses a connection of its own, because receivers may disappear at any
/// moment: the toolkit must get neither the resulting errors nor the events of the receivers' windows. Windows and
/// atoms are the server's numbers. Main thread only.
class X11PropertyWriter final : public QObject {
    Q_OBJECT

public:
    struct Limits {
        /// In bytes. Every server accepts requests four times as large.
        std::size_t pieceSize = 65'536;
        /// The maximum number of deliveries in pieces that run at the same time.
        std::size_t deliveries = 32;
        /// The timeout for a receiver to take a piece. It expires after up to twice this time.
        std::chrono::milliseconds patience{ 15'000 };
    };

    /// Connects to the server that the environment names. Null when that fails.
    [[nodiscard]] static std::unique_ptr<X11PropertyWriter> tryCreate(const Limits& limits);
    ~X11PropertyWriter() override;

    /// Delivers `bytes`; false when too many deliveries are under way.
    [[nodiscard]] bool write(std::uint32_t window, std::uint32_t property, std::uint32_t type, const QByteArray& bytes);

    /// Writes a list of atoms or other numbers.
    void writeNumbers(std::uint32_t window, std::uint32_t property, std::uint32_t type,
                      const std::vector<std::uint32_t>& numbers);

    /// Reads a list of numbers that a receiver has written.
    [[nodiscard]] std::vector<std::uint32_t> readNumbers(std::uint32_t window, std::uint32_t property);

    /// Notifies the receiver that its request was answered, or was refused if the property is 0.
    void notify(const xcb_selection_notify_event_t& answer);

private:
    using Clock = std::chrono::steady_clock;

    struct Delivery {
        std::uint32_t window = 0;
        std::uint32_t property = 0;
        std::uint32_t type = 0;
        QByteArray bytes;
        std::size_t sent = 0;
        Clock::time_point lastStep;
    };

    X11PropertyWriter(xcb_connection_t* connection, const Limits& limits);

    void readEvents();
    void handle(const xcb_generic_event_t& event);
    void sendPiece(std::uint32_t window, std::uint32_t property);
    template <typename Matches> void endDeliveries(Matches matches);
    void watch(std::uint32_t window);
    void endStalledDeliveries();

    XcbConnection m_connection;
    Limits m_limits;
    /// The atom INCR, the property type that announces a delivery in pieces.
    std::uint32_t m_inPieces;
    std::vector<Delivery> m_deliveries;
    QSocketNotifier m_notifier;
    QTimer m_stallTimer;
};

} // namespace nookle

#pragma once

#include "XcbConnection.h"

#include <QByteArray>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>

namespace nookle {

/// Reads selections of other programs. Uses a connection of its own, so that it can set its own timeout: the toolkit
/// would wait five seconds for each format that a source does not deliver. Blocks. Main thread only.
class X11SelectionReader final {
public:
    using Clock = std::chrono::steady_clock;

    /// Connects to the server that the environment names. Null when that fails.
    [[nodiscard]] static std::unique_ptr<X11SelectionReader> tryCreate();

    /// The data of `selection`, converted to `target`. Both are atoms; `time` is a timestamp of the server. None when
    /// the owner refuses, delivers more than `maximumSize` bytes, or has not finished at `deadline`.
    [[nodiscard]] std::optional<QByteArray> read(std::uint32_t selection, std::uint32_t target, std::uint32_t time,
                                                 qsizetype maximumSize, Clock::time_point deadline);

private:
    class Requestor;

    explicit X11SelectionReader(xcb_connection_t* connection);

    [[nodiscard]] bool waitForData(const Requestor& requestor, Clock::time_point deadline);
    [[nodiscard]] bool waitForMore(const Requestor& requestor, Clock::time_point deadline);
    template <typename Matches> [[nodiscard]] bool waitForEvent(Clock::time_point deadline, Matches matches);
    /// Reads and deletes the property; none when it is larger than `maximumSize`.
    [[nodiscard]] std::optional<QByteArray> take(const Requestor& requestor, qsizetype maximumSize);
    [[nodiscard]] std::optional<QByteArray> readInPieces(const Requestor& requestor, qsizetype maximumSize,
                                                         Clock::time_point deadline);

    XcbConnection m_connection;
    std::uint32_t m_root = 0;
    std::uint32_t m_property = 0;
    std::uint32_t m_pieces = 0;
    /// The type of the property that `take` read last.
    std::uint32_t m_takenType = 0;
};

} // namespace nookle

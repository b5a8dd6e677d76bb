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
    explicit X11SelectionReader(xcb_connection_t* connection);

    XcbConnection m_connection;
};

} // namespace nookle

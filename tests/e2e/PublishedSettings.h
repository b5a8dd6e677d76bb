#pragma once

#include "XcbOwned.h"

#include <QByteArray>

#include <cstdint>
#include <utility>
#include <variant>
#include <vector>

namespace nookle::e2e {

/// Publishes settings for all toolkits on an X server, as a part of a session does. They go with this object.
class PublishedSettings {
public:
    explicit PublishedSettings(const QByteArray& display);

    using Value = std::variant<QByteArray, std::int32_t>;

    /// Replaces the settings.
    void publish(const std::vector<std::pair<QByteArray, Value>>& settings);

private:
    [[nodiscard]] xcb_atom_t atom(const QByteArray& name) const;

    XcbConnection m_connection;
    xcb_window_t m_window;
    /// Of the last change. Programs skip settings whose number has not grown.
    std::uint32_t m_serial = 0;
};

} // namespace nookle::e2e

#pragma once

#include "XcbOwned.h"

#include <QByteArray>

#include <utility>
#include <vector>

namespace nookle::e2e {

/// Publishes settings for all toolkits on an X server, as a part of a session does. They go with this object.
class PublishedSettings {
public:
    explicit PublishedSettings(const QByteArray& display);

    /// Replaces the settings. They are texts.
    void publish(const std::vector<std::pair<QByteArray, QByteArray>>& settings);

private:
    [[nodiscard]] xcb_atom_t atom(const QByteArray& name) const;

    XcbConnection m_connection;
    xcb_window_t m_window;
};

} // namespace nookle::e2e

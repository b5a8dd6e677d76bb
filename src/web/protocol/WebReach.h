#pragma once

namespace nookle {

/// Where a host stands, as seen from this computer.
enum class WebReach {
    /// Anybody's host on the internet.
    publicNetwork,
    /// This computer, its local network, or an address that no host on the internet has.
    privateNetwork,
};

} // namespace nookle

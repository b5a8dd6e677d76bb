#pragma once

namespace nookle {

/// The network of a host, as seen from this computer.
enum class WebReach {
    /// The internet.
    publicNetwork,
    /// This computer, its local network, or an address that no host on the internet has.
    privateNetwork,
};

} // namespace nookle

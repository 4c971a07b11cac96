#include "pixel_conversion_peers.h"

namespace kolmfluxor::bench {

// For targets that the peers' libraries are not built for.
std::span<const Peer> Peers() {
    return {};
}

}  // namespace kolmfluxor::bench

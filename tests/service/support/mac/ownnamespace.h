#pragma once

namespace OwnNetwork {

/// There is no such thing here.
inline bool enterNamespace()
{
    return false;
}

} // namespace OwnNetwork

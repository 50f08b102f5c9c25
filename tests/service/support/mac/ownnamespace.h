#pragma once

namespace OwnNetwork {

/// macOS has no network namespaces.
inline bool enterNamespace()
{
    return false;
}

} // namespace OwnNetwork

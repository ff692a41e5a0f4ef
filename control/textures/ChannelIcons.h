#pragma once

#include <QIcon>

namespace CorvexMaterial {

/// Signs drawn in the palette's colours, sharp at any size.
enum class ChannelSign {
    Surface,
    Primary,
    Overlay,
    Alpha,
    Bump,
    Specular,
    Environment,
    CustomFields,
    Advanced,
    Plugin,
    SphericalWrap,
    FlatWrap,
    CylindricalWrap,
    LibraryAdd,
    LibraryDelete,
    LibraryFile,
};

[[nodiscard]] QIcon ChannelIcon(ChannelSign sign);

}  // namespace CorvexMaterial

#pragma once

#include "Trial.h"
#include <CorvexMaterial/Host.h>
#include <CorvexMaterial/Platform.h>

#include <string>

namespace CorvexMaterial {

/// What the channels ask of the control that they sit in.
class ChannelOwner {
public:
    virtual ~ChannelOwner() = default;
    /// A simulation texture holds the primary layer; no other may be chosen for it meanwhile.
    virtual bool SimulationTextureActive() = 0;
    /// File of the texture library that the host's texture collection was read from.
    virtual std::string TextureLibraryFile() = 0;
};

/// Everything that the channels call. All of it outlives them.
struct ChannelServices {
    Host& host;
    Platform& platform;
    ChannelOwner& owner;
    Trial& trial;
};

}  // namespace CorvexMaterial

#include "OwnFormats.h"

#include "DdsDecoder.h"
#include "PcxDecoder.h"
#include "TgaDecoder.h"

#include <array>

namespace studio {

namespace {

constexpr std::array kFormats{
    OwnFormat{"dds", true, DdsExtent, DecodeDds},
    OwnFormat{"pcx", false, PcxExtent, DecodePcx},
    OwnFormat{"tga", false, TgaExtent, DecodeTga},
};

}  // namespace

std::span<const OwnFormat> OwnFormats()
{
    return kFormats;
}

const OwnFormat* FindOwnFormat(std::span<const std::byte> head, std::string_view suffix)
{
    for (const OwnFormat& format : kFormats) {
        if ((format.hasSignature || format.name == suffix) && format.extentOf(head)) {
            return &format;
        }
    }
    return nullptr;
}

}  // namespace studio

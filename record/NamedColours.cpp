#include <CorvexMaterial/NamedColours.h>

#include <algorithm>

namespace CorvexMaterial {

namespace {

constexpr bool ColoursDiffer()
{
    for (std::size_t i = 0; i < kNamedColours.size(); ++i) {
        for (std::size_t k = i + 1; k < kNamedColours.size(); ++k) {
            if (kNamedColours[i].colour == kNamedColours[k].colour) {
                return false;
            }
        }
    }
    return true;
}
static_assert(ColoursDiffer());

}  // namespace

std::size_t ColourListPosition(Colour colour)
{
    const Colour opaque = MakeColour(BytesOf(colour));
    const auto* const row =
        std::find_if(kNamedColours.begin(), kNamedColours.end(),
                     [opaque](const NamedColour& named) { return named.colour == opaque; });
    return static_cast<std::size_t>(row - kNamedColours.begin());
}

}  // namespace CorvexMaterial

#include <CorvexMaterial/PreviewPrimitives.h>

#include <cstddef>

namespace CorvexMaterial {

namespace {

constexpr bool RowsFollowCodes()
{
    for (std::size_t i = 0; i < kPreviewPrimitives.size(); ++i) {
        if (kPreviewPrimitives[i].code != static_cast<std::int32_t>(i)) {
            return false;
        }
    }
    return true;
}
static_assert(RowsFollowCodes());

}  // namespace

const PreviewPrimitive* FindPreviewPrimitive(std::int32_t code)
{
    const bool isKnown = code >= 0 && static_cast<std::size_t>(code) < kPreviewPrimitives.size();
    return isKnown ? &kPreviewPrimitives[static_cast<std::size_t>(code)] : nullptr;
}

}  // namespace CorvexMaterial

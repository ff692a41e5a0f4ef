#include "LookTable.h"
#include <CorvexMaterial/EnumEnd.h>

#include <algorithm>

namespace CorvexMaterial {

namespace {

using looks::kColorPatterns;
using looks::kNormalPatterns;
using looks::kPredefined;

/// Type after type without a gap, and every position of a type in its turn.
consteval bool PredefinedFollowTheirTypes()
{
    std::size_t row = 0;
    for (std::size_t type = 0; type < kPredefinedTypeNames.size(); ++type) {
        std::int32_t position = 0;
        while (row < kPredefined.size() &&
               kPredefined[row].type == static_cast<PredefinedType>(type)) {
            if (kPredefined[row++].position != position++) {
                return false;
            }
        }
    }
    return row == kPredefined.size();
}
static_assert(PredefinedFollowTheirTypes());

template <typename Rows>
consteval bool PatternsFollowEnum(const Rows& rows)
{
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (static_cast<std::size_t>(rows[i].pattern) != i) {
            return false;
        }
    }
    return true;
}
static_assert(PatternsFollowEnum(kColorPatterns) && EndsAt<ColorPattern, kColorPatterns.size()>());
static_assert(PatternsFollowEnum(kNormalPatterns) &&
              EndsAt<NormalPattern, kNormalPatterns.size()>());

template <typename Row>
const Row* At(RowRange<Row> rows, std::int32_t position)
{
    const auto index = static_cast<std::size_t>(position);
    return position >= 0 && index < rows.size() ? &rows[index] : nullptr;
}

template <typename Row>
const PovRayPattern* PatternAt(RowRange<Row> rows, std::int32_t position)
{
    const Row* row = At(rows, position);
    return row == nullptr || row->povRay.text.empty() ? nullptr : &row->povRay;
}

}  // namespace

RowRange<PredefinedLook> PredefinedLooks(std::int32_t type)
{
    const auto wanted = static_cast<PredefinedType>(type);
    const auto first = std::ranges::lower_bound(kPredefined, wanted, {}, &PredefinedLook::type);
    const auto last = std::ranges::upper_bound(kPredefined, wanted, {}, &PredefinedLook::type);
    return {first, last};
}

const PredefinedLook* PredefinedLookOf(const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    return IsPredefined(attributes)
               ? At(PredefinedLooks(attributes.PredefinedType), attributes.PreDefinedMaterial)
               : nullptr;
}

RowRange<ColorPatternLook> ColorPatternLooks()
{
    return kColorPatterns;
}

RowRange<NormalPatternLook> NormalPatternLooks()
{
    return kNormalPatterns;
}

const PovRayPattern* FindColourPattern(std::int32_t position)
{
    return PatternAt(ColorPatternLooks(), position);
}

const PovRayPattern* FindNormalPattern(std::int32_t position)
{
    return PatternAt(NormalPatternLooks(), position);
}

Rgb LightOf(const CorvexDB::PatternColour& colour)
{
    return {LinearFromEncoded(CutToUnit(colour.red)), LinearFromEncoded(CutToUnit(colour.green)),
            LinearFromEncoded(CutToUnit(colour.blue))};
}

Rgb MeanPatternLight(const CorvexDB::cdtRayTraceMaterialAttributes& attributes)
{
    const PovRayPattern* pattern = FindColourPattern(attributes.ColorPattern);
    if (pattern == nullptr) {
        return {1.0F, 1.0F, 1.0F};
    }
    const std::size_t count = pattern->blocks ? 2 : attributes.ColorPatternColor.size();
    Rgb sum;
    for (std::size_t i = 0; i < count; ++i) {
        sum = sum + LightOf(attributes.ColorPatternColor[i]);
    }
    return sum * (1.0F / static_cast<float>(count));
}

}  // namespace CorvexMaterial

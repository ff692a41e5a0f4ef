#include <CorvexMaterial/Schema.h>

#include "SchemaGuards.h"
#include "SchemaTable.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace CorvexMaterial {

namespace {

using namespace schema;

// An enumerator or a member without a row, a row out of order, two rows for one member: none of
// them compiles.
static_assert(EndsAt<Attribute, kAttributeCount>(), "kAttributeCount names the last attribute");
static_assert(RowsFollowEnum(kRows), "SchemaTable.h: an attribute without a row, or out of order");
static_assert(NoTwoRowsShareAMember(kRows), "SchemaTable.h: two rows for one member");
static_assert(MembersWithRows(kRows) == MemberCount<M>(), "udtMaterial: a member without a row");
static_assert(MembersWithRows(kRows, paths::kSteps<&M::Textures>) == MemberCount<Files>(),
              "TextureFiles: a member without a row");
static_assert(MembersWithRows(kRows, paths::kSteps<&M::Placement>) == MemberCount<Placement>(),
              "TexturePlacement: a member without a row");
static_assert(MembersWithRows(kRows, paths::kSteps<&M::Projection>) == MemberCount<Projection>(),
              "TextureProjection: a member without a row");
static_assert(MembersWithRows(kRows, paths::kSteps<&M::RayTrace>) == MemberCount<Raytrace>(),
              "cdtRayTraceMaterialAttributes: a member without a row");
static_assert(MembersWithRows(kRows, paths::kSteps<&M::RayTrace, &Raytrace::ColorPatternColor>) ==
                  std::tuple_size_v<decltype(Raytrace::ColorPatternColor)>,
              "a color without rows");
template <std::size_t... Index>
consteval bool EveryPatternColourIsWhole(std::index_sequence<Index...>)
{
    return (
        (MembersWithRows(
             kRows, paths::kSteps<&M::RayTrace, &Raytrace::ColorPatternColor, Element{Index}>) ==
         MemberCount<PatternColour>()) &&
        ...);
}
static_assert(EveryPatternColourIsWhole(std::make_index_sequence<4>()),
              "PatternColour: a member without a row for each color");

/// Capitals, hyphens and blanks do not count.
constexpr bool MeansTheSame(std::string_view typed, std::string_view word)
{
    const auto next = [](std::string_view& text) {
        while (text.starts_with('-') || text.starts_with(' ')) {
            text.remove_prefix(1);
        }
        const char letter = text.empty() ? '\0' : text.front();
        text.remove_prefix(text.empty() ? 0 : 1);
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    };
    char letter = '\0';
    do {
        letter = next(typed);
        if (letter != next(word)) {
            return false;
        }
    } while (letter != '\0');
    return true;
}

constexpr bool HasSynonym(const AttributeRow& row, std::string_view typed)
{
    for (std::string_view rest = row.synonyms; !rest.empty();) {
        const std::size_t end = std::min(rest.find(", "), rest.size());
        if (MeansTheSame(typed, rest.substr(0, end))) {
            return true;
        }
        rest.remove_prefix(std::min(end + 2, rest.size()));
    }
    return false;
}

constexpr bool NamesAreUnique()
{
    for (const AttributeRow& row : kRows) {
        const auto isOther = [&](const AttributeRow& other) {
            return other.attribute != row.attribute &&
                   (other.word == row.word || HasSynonym(other, row.word));
        };
        if (!row.word.empty() && std::any_of(kRows.begin(), kRows.end(), isOther)) {
            return false;
        }
    }
    return true;
}
static_assert(NamesAreUnique(), "SchemaTable.h: a word or synonym that another row has");

}  // namespace

const std::array<AttributeRow, kAttributeCount>& AttributeRows()
{
    return kRows;
}

const AttributeRow& RowOf(Attribute attribute)
{
    return kRows[static_cast<std::size_t>(attribute)];
}

std::string_view FactoryText(Attribute attribute)
{
    return RowOf(attribute).factoryText;
}

const char* TitleOf(AttributeGroup group)
{
    constexpr std::array kTitles{
        "Surface",           "Blending",           "Textures",            "Wrap",
        "Texture placement", "Texture projection", "Raytrace attributes", "Plug-in",
        "Custom fields",     "Panel"};
    static_assert(kTitles.size() == static_cast<std::size_t>(Group::Panel) + 1);
    return kTitles[static_cast<std::size_t>(group)];
}

const char* LabelOf(AttributeGroup group)
{
    const bool changesAsOne =
        group == Group::Textures || group == Group::Placement || group == Group::Raytrace;
    return changesAsOne ? TitleOf(group) : nullptr;
}

bool Differ(const CorvexDB::udtMaterial& one, const CorvexDB::udtMaterial& other,
            bool (*isMeant)(Touches))
{
    return std::any_of(kRows.begin(), kRows.end(), [&](const AttributeRow& row) {
        return row.path.LeadsIntoRecord() && isMeant(row.touches) && !row.path.same(one, other);
    });
}

void KeepTextureUse(CorvexDB::udtMaterial& material, const CorvexDB::udtMaterial& shape)
{
    for (const AttributeRow& row : kRows) {
        if (row.touches == Touches::Texture && row.group == Group::Blending) {
            row.path.set(material, row.path.get(shape));
        }
    }
}

const AttributeRow* FindAttribute(std::string_view word)
{
    const auto row = std::find_if(kRows.begin(), kRows.end(), [&](const AttributeRow& candidate) {
        return !candidate.word.empty() &&
               (MeansTheSame(word, candidate.word) || HasSynonym(candidate, word));
    });
    return row == kRows.end() ? nullptr : &*row;
}

}  // namespace CorvexMaterial

namespace CorvexDB {

namespace {

/// In records that have nothing else: the rows know every member of a part.
template <typename Part>
bool IsSame(Part udtMaterial::*part, const Part& one, const Part& other)
{
    udtMaterial first;
    udtMaterial second;
    first.*part = one;
    second.*part = other;
    return first == second;
}

}  // namespace

bool operator==(const udtMaterial& one, const udtMaterial& other)
{
    return !CorvexMaterial::Differ(one, other, [](CorvexMaterial::Touches) { return true; });
}

bool operator==(const TextureFiles& one, const TextureFiles& other)
{
    return IsSame(&udtMaterial::Textures, one, other);
}

bool operator==(const TexturePlacement& one, const TexturePlacement& other)
{
    return IsSame(&udtMaterial::Placement, one, other);
}

bool operator==(const TextureProjection& one, const TextureProjection& other)
{
    return IsSame(&udtMaterial::Projection, one, other);
}

bool operator==(const cdtRayTraceMaterialAttributes& one,
                const cdtRayTraceMaterialAttributes& other)
{
    return IsSame(&udtMaterial::RayTrace, one, other);
}

}  // namespace CorvexDB

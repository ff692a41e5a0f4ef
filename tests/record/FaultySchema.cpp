// With one of these faults the rows must not compile; without any they do.

#include "SchemaGuards.h"
#include "SchemaTable.h"

#include <utility>

namespace CorvexMaterial::schema {

#ifdef ENUMERATOR_WITHOUT_ROW
constexpr std::size_t kCount = kRows.size() - 1;
#else
constexpr std::size_t kCount = kRows.size();
#endif

consteval std::array<AttributeRow, kCount> Faulty()
{
    std::array<AttributeRow, kCount> rows{};
    std::copy_n(kRows.begin(), kCount, rows.begin());
    [[maybe_unused]] auto& transparency = rows[static_cast<std::size_t>(Transparency)];
#ifdef ROW_OUT_OF_ORDER
    std::swap(transparency, rows[static_cast<std::size_t>(Specular)]);
#endif
#ifdef TWO_ROWS_FOR_A_MEMBER
    transparency.path = kPath<&M::Specular>;
#endif
#ifdef MEMBER_WITHOUT_ROW
    transparency.path = kPanelState;
#endif
    return rows;
}

#ifdef NEW_MEMBER_WITHOUT_ROW
struct Wider {
    float originU, originV, scaleU, scaleV, turn;
};
#else
using Wider = Placement;
#endif

#ifdef ENUMERATOR_BEHIND_THE_COUNT
constexpr std::size_t kCounted = kAttributeCount - 1;
#else
constexpr std::size_t kCounted = kAttributeCount;
#endif

static_assert(EndsAt<Attribute, kCounted>());
static_assert(RowsFollowEnum(Faulty()));
static_assert(NoTwoRowsShareAMember(Faulty()));
static_assert(MembersWithRows(Faulty()) == MemberCount<M>());
static_assert(MembersWithRows(Faulty(), paths::kSteps<&M::Placement>) == MemberCount<Wider>());

}  // namespace CorvexMaterial::schema

#pragma once

// How the rows of the schema name the member of the record that they are about.

#include <CorvexMaterial/RecordPath.h>

#include <cstddef>
#include <type_traits>

namespace CorvexMaterial {

/// A step to one element of an array.
struct Element {
    std::size_t index = 0;
};

namespace paths {

template <auto Step>
inline constexpr char kIdentity = 0;

template <auto... Steps>
inline constexpr PathSteps kSteps{PathStep{&kIdentity<Steps>}...};

template <auto First, auto... Rest, typename Object>
constexpr auto& Follow(Object& object)
{
    const auto inner = [](auto& outer) -> auto&
    {
        if constexpr (std::is_same_v<std::remove_cv_t<decltype(First)>, Element>) {
            return outer[First.index];
        } else {
            return outer.*First;
        }
    };
    if constexpr (sizeof...(Rest) == 0) {
        return inner(object);
    } else {
        return Follow<Rest...>(inner(object));
    }
}

template <auto... Steps>
AttributeValue Get(const CorvexDB::udtMaterial& record)
{
    const auto& member = Follow<Steps...>(record);
    if constexpr (std::is_enum_v<std::remove_cvref_t<decltype(member)>>) {
        return static_cast<std::int32_t>(member);
    } else {
        return member;
    }
}

template <auto... Steps>
void Set(CorvexDB::udtMaterial& record, const AttributeValue& value)
{
    auto& member = Follow<Steps...>(record);
    using Member = std::remove_cvref_t<decltype(member)>;
    if constexpr (std::is_enum_v<Member>) {
        member = static_cast<Member>(std::get<std::int32_t>(value));
    } else {
        member = std::get<Member>(value);
    }
}

template <auto... Steps>
bool Same(const CorvexDB::udtMaterial& one, const CorvexDB::udtMaterial& other)
{
    return Follow<Steps...>(one) == Follow<Steps...>(other);
}

}  // namespace paths

/// The path over these members, from the record inwards:
/// `kPath<&udtMaterial::Placement, &TexturePlacement::originU>`.
template <auto... Steps>
inline constexpr RecordPath kPath{paths::kSteps<Steps...>, paths::Get<Steps...>,
                                  paths::Set<Steps...>, paths::Same<Steps...>};

}  // namespace CorvexMaterial

#pragma once

#include <array>
#include <string_view>

namespace CorvexMaterial {

/// The alpha-test list; an attribute's value is a position in it.
inline constexpr std::array<std::string_view, 8> kAlphaTestNames{
    "Never", "Less", "Equal", "Less/Equal", "Greater", "Not Equal", "Greater/Eq.", "Always"};

/// The one test that does not compare with the reference.
inline constexpr int kAlphaTestNever = 0;

}  // namespace CorvexMaterial

#pragma once

#include "Testing.h"
#include <string_view>

namespace StudioRaytraceTest {

/// A number or a string counts as an array of one.
struct RibArgument {
    bool isArray = false;
    std::vector<float> numbers;
    std::vector<std::string> strings;
};

/// One request of a RIB with what follows it.
struct RibRequest {
    std::string name;
    std::vector<RibArgument> arguments;

    /// The string at this place; empty when there is none.
    [[nodiscard]] std::string Text(std::size_t index = 0) const;
    /// All numbers that are no parameter's.
    [[nodiscard]] std::vector<float> Numbers() const;
    /// What follows the parameter of this name, whatever its type; null when there is none.
    [[nodiscard]] const RibArgument* Parameter(std::string_view parameter) const;
};

struct RibFile {
    std::vector<RibRequest> requests;
    std::vector<std::string> faults;  ///< for a renderer that takes the plain interface only

    [[nodiscard]] const RibRequest* Find(std::string_view name) const;
    [[nodiscard]] std::vector<const RibRequest*> All(std::string_view name) const;
};

/// Reads what a renderer would, as strictly as the least of them.
[[nodiscard]] RibFile ReadRib(const std::string& text);

}  // namespace StudioRaytraceTest

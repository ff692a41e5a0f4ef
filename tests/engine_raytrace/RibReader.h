#pragma once

#include "Testing.h"
#include <string_view>

namespace StudioRaytraceTest {

/// A number or a string counts as an array of one.
struct RibArgument {
    std::vector<float> numbers;
    std::vector<std::string> strings;
};

/// One request of a RIB with what follows it.
struct RibRequest {
    std::string name;
    std::vector<RibArgument> arguments;

    /// The string at this place; empty when there is none.
    [[nodiscard]] std::string Text(std::size_t index = 0) const;
    /// Those of its parameters too.
    [[nodiscard]] std::vector<float> Numbers() const;
    /// What follows the parameter of this name, whatever its type; null when there is none.
    [[nodiscard]] const RibArgument* Parameter(std::string_view parameter) const;
};

struct RibFile {
    std::vector<RibRequest> requests;

    [[nodiscard]] const RibRequest* Find(std::string_view name) const;
    [[nodiscard]] std::vector<const RibRequest*> All(std::string_view name) const;
};

/// Reads what a renderer would, as strictly as the least of them: throws what is wrong.
[[nodiscard]] RibFile ReadRib(const std::string& text);

}  // namespace StudioRaytraceTest

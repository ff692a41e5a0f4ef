#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace CorvexMaterial {

// File types as the file dialogs name them.

inline constexpr std::string_view kWrongFileType = "File Type not Correct.";
inline constexpr std::string_view kTiffExtension = "TIF";

/// In upper case, without the dot; empty when the file's name has none.
[[nodiscard]] std::string UpperExtensionOf(std::string_view path);

/// ASCII letters only, whatever the user's locale.
[[nodiscard]] std::string UpperCase(std::string_view text);

/// The file dialog's filter: the description with the upper-case patterns, "|", and the lower-case
/// patterns that are applied.
[[nodiscard]] std::string DialogFilter(std::string_view description,
                                       std::span<const std::string_view> extensions);

/// What the desktop's chooser needs of a filter.
struct FilterParts {
    std::string description;
    std::vector<std::string> extensions;
};
[[nodiscard]] FilterParts SplitDialogFilter(std::string_view filter);

}  // namespace CorvexMaterial

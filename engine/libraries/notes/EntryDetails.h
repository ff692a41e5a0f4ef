#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace studio {

/// What a person notes of an entry, beside its name and its record.
struct EntryDetails {
    std::string author;
    std::string licence;
    std::string source;  ///< an address, or any text
    /// Each once in whatever case, by name.
    std::vector<std::string> tags;
    std::vector<std::string> collections;

    bool operator==(const EntryDetails&) const = default;
};

/// Both kinds of words that entries are given to be found by.
enum class LabelKind : std::int32_t { Tag, Collection };

[[nodiscard]] const std::vector<std::string>& LabelsIn(const EntryDetails& details, LabelKind kind);
[[nodiscard]] std::vector<std::string>& LabelsIn(EntryDetails& details, LabelKind kind);

/// As they are stored: blanks at the ends and empty ones gone, each once in whatever case, by name.
[[nodiscard]] std::vector<std::string> TidyLabels(const std::vector<std::string>& labels);

/// The labels between the commas, tidy.
[[nodiscard]] std::vector<std::string> LabelsOfText(std::string_view text);
[[nodiscard]] std::string TextOfLabels(const std::vector<std::string>& labels);

[[nodiscard]] bool HasLabel(const std::vector<std::string>& labels, std::string_view label);

}  // namespace studio

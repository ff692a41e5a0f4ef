#include "EntryDetails.h"

#include "SearchProperties.h"

#include <QString>

#include <algorithm>
#include <map>

namespace studio {
namespace {

constexpr qsizetype kLongestLabel = 100;

}  // namespace

const std::vector<std::string>& LabelsIn(const EntryDetails& details, LabelKind kind)
{
    return kind == LabelKind::Tag ? details.tags : details.collections;
}

std::vector<std::string>& LabelsIn(EntryDetails& details, LabelKind kind)
{
    return kind == LabelKind::Tag ? details.tags : details.collections;
}

std::vector<std::string> TidyLabels(const std::vector<std::string>& labels)
{
    std::map<std::string, std::string> byName;
    for (const std::string& label : labels) {
        const QString tidy = QString::fromStdString(label).simplified().left(kLongestLabel);
        if (!tidy.isEmpty()) {
            byName.emplace(Folded(tidy.toStdString()), tidy.toStdString());
        }
    }
    std::vector<std::string> tidy;
    for (auto& [folded, label] : byName) {
        tidy.push_back(std::move(label));
    }
    return tidy;
}

std::vector<std::string> LabelsOfText(std::string_view text)
{
    std::vector<std::string> labels;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(','), text.size());
        labels.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return TidyLabels(labels);
}

std::string TextOfLabels(const std::vector<std::string>& labels)
{
    std::string text;
    for (const std::string& label : labels) {
        text.append(text.empty() ? "" : ", ").append(label);
    }
    return text;
}

bool HasLabel(const std::vector<std::string>& labels, std::string_view label)
{
    return std::ranges::any_of(
        labels, [folded = Folded(label)](const auto& other) { return Folded(other) == folded; });
}

}  // namespace studio

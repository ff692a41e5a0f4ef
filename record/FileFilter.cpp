#include "FileFilter.h"

namespace CorvexMaterial {

namespace {

constexpr std::string_view kPatternStart = "*.";
constexpr char kPatternEnd = ';';
constexpr std::string_view kDescriptionEnd = " (";

template <typename Spell>
std::string Patterns(std::span<const std::string_view> extensions, Spell spell)
{
    std::string patterns;
    for (const std::string_view extension : extensions) {
        if (!patterns.empty()) {
            patterns += kPatternEnd;
        }
        patterns += kPatternStart;
        patterns += spell(extension);
    }
    return patterns;
}

}  // namespace

// The user's locale must not turn an i into a dotted capital.
std::string UpperCase(std::string_view text)
{
    std::string upper(text);
    for (char& letter : upper) {
        letter = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    }
    return upper;
}

std::string UpperExtensionOf(std::string_view path)
{
    const std::string_view name = path.substr(path.find_last_of('/') + 1);
    const std::size_t dot = name.find_last_of('.');
    return dot == std::string_view::npos ? std::string() : UpperCase(name.substr(dot + 1));
}

std::string DialogFilter(std::string_view description, std::span<const std::string_view> extensions)
{
    std::string filter(description);
    filter += kDescriptionEnd;
    filter += Patterns(extensions, UpperCase);
    filter += ")|";
    filter += Patterns(extensions, [](std::string_view extension) { return extension; });
    return filter;
}

FilterParts SplitDialogFilter(std::string_view filter)
{
    FilterParts parts;
    parts.description = filter.substr(0, filter.find(kDescriptionEnd));
    const std::size_t bar = filter.find_last_of('|');
    std::string_view rest = bar == std::string_view::npos ? std::string_view() : filter.substr(bar);
    for (std::size_t start = rest.find(kPatternStart); start != std::string_view::npos;
         start = rest.find(kPatternStart)) {
        rest.remove_prefix(start + kPatternStart.size());
        parts.extensions.emplace_back(rest.substr(0, rest.find(kPatternEnd)));
    }
    return parts;
}

}  // namespace CorvexMaterial

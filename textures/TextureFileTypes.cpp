#include "textures/TextureFileTypes.h"

#include <algorithm>
#include <array>

namespace CorvexMaterial {

namespace {

using namespace std::string_view_literals;

constexpr std::array kAll{"bmp"sv, "jpg"sv, "gif"sv, "png"sv, "tga"sv, "tif"sv, "pcx"sv, "dds"sv};
constexpr std::array kWithoutTranslucency{"bmp"sv, "jpg"sv, "gif"sv, "tif"sv, "pcx"sv, "dds"sv};

constexpr std::string_view kPatternStart = "*.";
constexpr char kPatternEnd = ';';
constexpr std::string_view kDescriptionEnd = " (";

// Extensions are ASCII; the user's locale must not turn an i into a dotted capital.
std::string Upper(std::string_view text)
{
    std::string upper(text);
    for (char& letter : upper) {
        letter = letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    }
    return upper;
}

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

std::span<const std::string_view> ExtensionsOf(TextureTypeList list)
{
    if (list == TextureTypeList::WithoutTranslucency) {
        return kWithoutTranslucency;
    }
    return kAll;
}

std::string UpperExtensionOf(std::string_view path)
{
    const std::string_view name = path.substr(path.find_last_of('/') + 1);
    const std::size_t dot = name.find_last_of('.');
    return dot == std::string_view::npos ? std::string() : Upper(name.substr(dot + 1));
}

bool IsListed(std::string_view path, TextureTypeList list)
{
    const std::string extension = UpperExtensionOf(path);
    return std::ranges::any_of(ExtensionsOf(list), [&extension](std::string_view listed) {
        return Upper(listed) == extension;
    });
}

std::string DialogFilter(std::string_view description, std::span<const std::string_view> extensions)
{
    std::string filter(description);
    filter += kDescriptionEnd;
    filter += Patterns(extensions, Upper);
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

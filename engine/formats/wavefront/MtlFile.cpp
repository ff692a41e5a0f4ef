#include "MtlFile.h"

#include "DocumentFile.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

namespace studio {
namespace {

constexpr std::string_view kBlanks = " \t\r\f\v";

constexpr std::array<std::string_view, 18> kNumberKeywords{
    "ka", "kd",    "ks", "ke", "ns", "ni",  "d",     "tr",     "tf",
    "pr", "illum", "pm", "ps", "pc", "pcr", "aniso", "anisor", "sharpness"};

/// Of one meaning under several names.
struct MapKeyword {
    std::string_view written;
    std::string_view kept;
};
constexpr std::array kMapKeywords{
    MapKeyword{"map_kd", "map_kd"},     MapKeyword{"map_ka", "map_ka"},
    MapKeyword{"map_ks", "map_ks"},     MapKeyword{"map_ke", "map_ke"},
    MapKeyword{"map_ns", "map_ns"},     MapKeyword{"map_d", "map_d"},
    MapKeyword{"map_opacity", "map_d"}, MapKeyword{"map_bump", "bump"},
    MapKeyword{"bump", "bump"},         MapKeyword{"norm", "norm"},
    MapKeyword{"map_kn", "norm"},       MapKeyword{"map_norm", "norm"},
    MapKeyword{"disp", "disp"},         MapKeyword{"map_disp", "disp"},
    MapKeyword{"decal", "decal"},       MapKeyword{"refl", "refl"},
    MapKeyword{"map_refl", "refl"},     MapKeyword{"map_pr", "map_pr"},
    MapKeyword{"map_pm", "map_pm"},     MapKeyword{"map_ps", "map_ps"},
    MapKeyword{"map_tr", "map_tr"},
};

/// How many arguments an option takes: those of numbers may be fewer than the most.
struct MapOption {
    std::string_view name;
    int most;
    bool numbers;
};
constexpr std::array kMapOptions{
    MapOption{"-o", 3, true},        MapOption{"-s", 3, true},
    MapOption{"-t", 3, true},        MapOption{"-mm", 2, true},
    MapOption{"-bm", 1, true},       MapOption{"-boost", 1, true},
    MapOption{"-texres", 2, true},   MapOption{"-clamp", 1, false},
    MapOption{"-blendu", 1, false},  MapOption{"-blendv", 1, false},
    MapOption{"-imfchan", 1, false}, MapOption{"-type", 1, false},
    MapOption{"-cc", 1, false},      MapOption{"-colorspace", 1, false},
};

/// Our own files have these.
constexpr std::array<std::string_view, 4> kWrittenOptions{"-o", "-s", "-imfchan", "-type"};

std::string Lower(std::string_view word)
{
    std::string lower(word);
    std::ranges::transform(lower, lower.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return lower;
}

std::string_view TrimmedOf(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

/// The next word; the rest begins at the one after it.
std::string_view TakeWord(std::string_view& rest)
{
    rest = TrimmedOf(rest);
    const std::size_t end = std::min(rest.find_first_of(kBlanks), rest.size());
    const std::string_view word = rest.substr(0, end);
    rest = TrimmedOf(rest.substr(end));
    return word;
}

std::optional<float> NumberIn(std::string_view word)
{
    if (word.starts_with('+')) {
        word.remove_prefix(1);
    }
    float value = 0.0F;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    const bool whole = error == std::errc() && end == word.data() + word.size();
    return whole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

std::vector<float> TakeNumbers(std::string_view& rest, std::size_t most)
{
    std::vector<float> numbers;
    while (numbers.size() < most) {
        std::string_view after = rest;
        const auto number = NumberIn(TakeWord(after));
        if (!number) {
            break;
        }
        numbers.push_back(*number);
        rest = after;
    }
    return numbers;
}

void Keep(MtlMap& map, std::string_view option, const std::vector<float>& values)
{
    const auto value = [&](std::size_t index, float otherwise) {
        return index < values.size() ? values[index] : otherwise;
    };
    if (option == "-o") {
        map.window.offsetU = value(0, 0.0F);
        map.window.offsetV = value(1, 0.0F);
    } else if (option == "-s") {
        map.window.scaleU = value(0, 1.0F);
        map.window.scaleV = value(1, 1.0F);
    } else if (option == "-bm") {
        map.bumpMultiplier = value(0, 1.0F);
    } else {
        map.ignored.emplace_back(option);
    }
}

void Keep(MtlMap& map, std::string_view option, std::string_view word)
{
    if (option == "-clamp") {
        map.clamp = Lower(word) == "on";
    } else if (option == "-imfchan" && !word.empty()) {
        map.channel = Lower(word).front();
    } else if (option != "-type") {
        map.ignored.emplace_back(option);
    }
}

MtlMap MapIn(std::string_view rest)
{
    MtlMap map;
    while (rest.starts_with('-')) {
        std::string_view after = rest;
        const std::string word = Lower(TakeWord(after));
        const auto* option = std::ranges::find(kMapOptions, word, &MapOption::name);
        if (option == kMapOptions.end()) {
            break;  // a file's name may begin with a dash
        }
        const std::string_view before = rest;
        rest = after;
        if (option->numbers) {
            Keep(map, word, TakeNumbers(rest, static_cast<std::size_t>(option->most)));
        } else if (word == "-type" || word == "-imfchan" || !rest.empty()) {
            Keep(map, word, TakeWord(rest));
        }
        if (std::ranges::find(kWrittenOptions, word) == kWrittenOptions.end()) {
            map.foreign += before.substr(0, before.size() - rest.size());
        }
    }
    map.file = rest;
    if (map.file.size() > 1 && map.file.front() == '"' && map.file.back() == '"') {
        map.file = map.file.substr(1, map.file.size() - 2);
    }
    return map;
}

void NoteUnknown(MtlMaterial& material, std::string_view keyword)
{
    constexpr std::size_t kMostNoted = 64;
    auto& noted = material.notUnderstood;
    const std::string word(keyword.substr(0, 40));
    if (noted.size() < kMostNoted && std::ranges::find(noted, word) == noted.end()) {
        noted.push_back(word);
    }
}

/// In lower case, and the first of its names.
std::string KeptKeyword(std::string_view written)
{
    const std::string keyword = Lower(written);
    const auto* map = std::ranges::find(kMapKeywords, keyword, &MapKeyword::written);
    return map == kMapKeywords.end() ? keyword : std::string(map->kept);
}

void TakeStatement(MtlMaterial& material, std::string_view written, std::string_view rest)
{
    constexpr std::size_t kMostNumbers = 4;
    const std::string keyword = KeptKeyword(written);
    if (std::ranges::find(kMapKeywords, keyword, &MapKeyword::kept) != kMapKeywords.end()) {
        material.maps[keyword] = MapIn(rest);
        return;
    }
    if (keyword == "d" && rest.starts_with("-halo")) {
        TakeWord(rest);
    }
    std::vector<float> numbers = TakeNumbers(rest, kMostNumbers);
    if (std::ranges::find(kNumberKeywords, keyword) == kNumberKeywords.end() || numbers.empty()) {
        NoteUnknown(material, written);
        return;
    }
    material.numbers[keyword] = std::move(numbers);
}

/// The next line without its end; a backslash at the end joins it with the one after it.
std::string TakeLine(std::string_view& text)
{
    std::string line;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\n\r"), text.size());
        line += text.substr(0, end);
        const bool both = text.substr(end).starts_with("\r\n");
        text.remove_prefix(std::min(end + (both ? 2 : 1), text.size()));
        if (!line.ends_with('\\')) {
            break;
        }
        line.back() = ' ';
    }
    return line;
}

}  // namespace

float MtlMaterial::Number(std::string_view keyword, float otherwise) const
{
    const auto found = numbers.find(keyword);
    return found == numbers.end() ? otherwise : found->second.front();
}

Rgb MtlMaterial::Colour(std::string_view keyword, Rgb otherwise) const
{
    const auto found = numbers.find(keyword);
    if (found == numbers.end()) {
        return otherwise;
    }
    const std::vector<float>& values = found->second;
    return values.size() < 3 ? Rgb{values[0], values[0], values[0]}
                             : Rgb{values[0], values[1], values[2]};
}

const MtlMap* MtlMaterial::Map(std::string_view keyword) const
{
    const auto found = maps.find(keyword);
    return found == maps.end() || found->second.file.empty() ? nullptr : &found->second;
}

std::vector<MtlMaterial> ParseMtl(std::string_view text, const std::string& path)
{
    constexpr std::size_t kMostMaterials = 100'000;
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    const std::size_t all = text.size();
    if (text.starts_with(kByteOrderMark)) {
        text.remove_prefix(kByteOrderMark.size());
    }
    std::vector<MtlMaterial> materials;
    while (!text.empty()) {
        const std::size_t left = text.size();
        const std::string line = TakeLine(text);
        std::string_view rest = line;
        const std::string_view keyword = TakeWord(rest);
        if (keyword.empty() || keyword.starts_with('#')) {
            continue;
        }
        if (Lower(keyword) == "newmtl") {
            if (materials.size() == kMostMaterials) {
                RefuseDocument(
                    path, QCoreApplication::translate("Interchange", "it holds too many materials.")
                              .toStdString());
            }
            materials.emplace_back().name = rest;
        } else if (!materials.empty()) {
            TakeStatement(materials.back(), keyword, rest);
        }
        if (!materials.empty()) {
            materials.back().statements.push_back(
                {KeptKeyword(keyword), all - left, all - text.size()});
        }
    }
    return materials;
}

}  // namespace studio

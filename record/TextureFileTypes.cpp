#include <CorvexMaterial/TextureFileTypes.h>

#include "FileFilter.h"

#include <algorithm>
#include <array>

namespace CorvexMaterial {

namespace {

using namespace std::string_view_literals;

constexpr std::array kAll{"bmp"sv, "jpg"sv, "gif"sv, "png"sv, "tga"sv, "tif"sv, "pcx"sv, "dds"sv};
constexpr std::array kWithoutTranslucency{"bmp"sv, "jpg"sv, "gif"sv, "tif"sv, "pcx"sv, "dds"sv};

}  // namespace

RowRange<std::string_view> ExtensionsOf(TextureTypeList list)
{
    if (list == TextureTypeList::WithoutTranslucency) {
        return kWithoutTranslucency;
    }
    return kAll;
}

bool IsListed(std::string_view path, TextureTypeList list)
{
    const std::string extension = UpperExtensionOf(path);
    return std::ranges::any_of(ExtensionsOf(list), [&extension](std::string_view listed) {
        return UpperCase(listed) == extension;
    });
}

}  // namespace CorvexMaterial

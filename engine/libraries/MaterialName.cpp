#include "MaterialName.h"

#include "ColourDistance.h"
#include "LibraryFile.h"
#include <CorvexMaterial/NamedColours.h>

#include <QFileInfo>

#include <algorithm>

namespace studio {
namespace {

std::string NearestColourName(CorvexMaterial::Colour colour)
{
    const auto& names = CorvexMaterial::kNamedColours;
    const auto nearest = std::ranges::min_element(
        names, {}, [&](const auto& named) { return ColourDistance(named.colour, colour); });
    return std::string(nearest->name);
}

}  // namespace

std::string DescriptiveName(const CorvexDB::udtMaterial& material)
{
    if (!material.Plugin.empty()) {
        return material.Plugin;
    }
    const QFileInfo texture(QString::fromStdString(material.Textures.primary));
    const std::string base = texture.completeBaseName().toStdString();
    return base.empty() ? NearestColourName(material.Color) : base;
}

std::string UnusedName(LibraryFile& library, const std::string& name)
{
    std::string candidate = name;
    for (int number = 2; !library.IdsNamed(candidate).empty(); ++number) {
        candidate = name + ' ' + std::to_string(number);
    }
    return candidate;
}

}  // namespace studio

#include "raytrace/TextureRules.h"

#include "dialogs/FileFilter.h"

#include <algorithm>

namespace CorvexMaterial {

namespace {

bool IsTiff(const std::string& file)
{
    const std::string extension = UpperExtensionOf(file);
    return extension == kTiffExtension || extension == "TIFF";
}

}  // namespace

bool TexturesFit(CorvexDB::Raytracer raytracer, const std::vector<std::string>& files)
{
    const bool tiffWanted = raytracer == CorvexDB::Raytracer::RenderMan;
    return std::ranges::all_of(files, [tiffWanted](const std::string& file) {
        return file.empty() || IsTiff(file) == tiffWanted;
    });
}

}  // namespace CorvexMaterial

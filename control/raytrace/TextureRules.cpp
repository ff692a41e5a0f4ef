#include "TextureRules.h"

#include "FileFilter.h"

#include <algorithm>

namespace CorvexMaterial {

namespace {

bool IsTiff(const std::string& file)
{
    const std::string extension = UpperExtensionOf(file);
    return extension == kTiffExtension || extension == "TIFF";
}

}  // namespace

bool TexturesFit(TiffRule rule, const std::vector<std::string>& files)
{
    return rule == TiffRule::Any || std::ranges::all_of(files, [rule](const std::string& file) {
               return file.empty() || IsTiff(file) == (rule == TiffRule::OnlyTiff);
           });
}

}  // namespace CorvexMaterial

#pragma once

#include "ExportedProperties.h"
#include "TextureReference.h"

#include <string>
#include <vector>

namespace studio {

struct MtlLine {
    std::string keyword;
    std::string options;  ///< of an image, with the blank behind them
    std::string value;
};

/// What is written of a material, for a file in the folder.
[[nodiscard]] std::vector<MtlLine> MtlLinesOf(const NamedMaterial& named, const std::string& folder,
                                              AlphaChannels& alpha, ExportNotes& notes);
/// With an empty line before it.
[[nodiscard]] std::string MtlBlock(const std::string& name, const std::vector<MtlLine>& lines,
                                   const std::string& lineEnd);

}  // namespace studio

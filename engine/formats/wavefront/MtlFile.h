#pragma once

#include "Amounts.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace studio {

/// An image with its options.
struct MtlMap {
    std::string file;    ///< as written, empty when there is none
    ImageWindow window;  ///< from the bottom
    bool clamp = false;
    float bumpMultiplier = 1.0F;
    char channel = '\0';               ///< of -imfchan: r, g, b, m, l or z
    std::vector<std::string> ignored;  ///< options that are not kept here, as "-mm"
    std::string foreign;               ///< as written, the options that no writer of ours sets
};

/// Where a statement is in the text, with the end of its line.
struct MtlStatement {
    std::string keyword;  ///< in lower case; of a map under several names the one that is kept
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// A material of a Wavefront MTL file as it is written there. Keywords are in lower case.
struct MtlMaterial {
    std::string name;
    std::map<std::string, std::vector<float>, std::less<>> numbers;  ///< finite; 1 to 4 each
    std::map<std::string, MtlMap, std::less<>> maps;
    std::vector<std::string> notUnderstood;  ///< keywords, each once
    std::vector<MtlStatement> statements;    ///< of which newmtl is the first

    [[nodiscard]] bool Has(std::string_view keyword) const { return numbers.contains(keyword); }
    /// The first number.
    [[nodiscard]] float Number(std::string_view keyword, float otherwise) const;
    /// One number stands for a grey.
    [[nodiscard]] Rgb Colour(std::string_view keyword, Rgb otherwise) const;
    /// Null when there is none.
    [[nodiscard]] const MtlMap* Map(std::string_view keyword) const;
};

/// Reads any text: what is not understood is passed over and listed. Lines may end and be
/// continued as on any system; the last statement of a kind wins. Errors: FileFailed naming the
/// path when there are more materials than any sensible file has.
[[nodiscard]] std::vector<MtlMaterial> ParseMtl(std::string_view text, const std::string& path);

}  // namespace studio

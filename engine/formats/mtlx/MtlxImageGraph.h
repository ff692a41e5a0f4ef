#pragma once

#include "MtlxWriter.h"

#include <CorvexMaterial/MaterialRecord.h>

namespace studio {

class AlphaChannels;

/// What covers a surface in parts.
enum class MtlxCoverage { None, AlphaMap, PrimaryImage };
[[nodiscard]] MtlxCoverage CoverageOf(const CorvexDB::udtMaterial& material, AlphaChannels& alpha);

/// The node graph of a material's images; each output is named like the input it is for, with
/// "_out".
class MtlxImageGraph {
public:
    /// Everything given outlives this. Images are named relative to the folder.
    MtlxImageGraph(MtlxWriter& out, const CorvexDB::udtMaterial& material, MtlxCoverage coverage,
                   const std::string& folder);

    /// False when there is nothing to write.
    [[nodiscard]] static bool IsNeeded(const CorvexDB::udtMaterial& material);
    [[nodiscard]] static bool HasColour(const CorvexDB::udtMaterial& material);

    void Write(const std::string& name);

private:
    void Output(const char* name, const char* type, const std::string& node);
    void Image(const char* name, const char* type, const std::string& file, const char* space);
    // Each returns the name of the last node.
    std::string Colour();
    std::string Layered();
    std::string Coverage();
    std::string Specular();
    std::string Bump();

    MtlxWriter& m_out;
    const CorvexDB::udtMaterial& m_material;
    MtlxCoverage m_coverage;
    const std::string& m_folder;
    ImageWindow m_window;
};

}  // namespace studio

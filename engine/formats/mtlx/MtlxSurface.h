#pragma once

#include "MtlxGraph.h"
#include "Report.h"

namespace studio {

/// One standard_surface as a material, input by input; images are looked for from the document's
/// folder. The notes tell what became of each input.
[[nodiscard]] CorvexDB::udtMaterial MaterialOfSurface(const MtlxElement& shader, MtlxGraph& graph,
                                                      const std::string& folder,
                                                      MaterialNotes notes);

}  // namespace studio

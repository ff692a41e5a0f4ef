#pragma once

#include "MtlFile.h"
#include "Report.h"

// What a material takes of an MTL file's, term by term; the notes tell what became of each.

namespace studio {

/// Colours and amounts.
void TakeMtlAmounts(const MtlMaterial& source, MaterialNotes& notes,
                    CorvexDB::udtMaterial& material);

/// Images, which are looked for from the folder, and where they lie.
void TakeMtlImages(const MtlMaterial& source, const std::string& folder, MaterialNotes& notes,
                   CorvexDB::udtMaterial& material);

}  // namespace studio

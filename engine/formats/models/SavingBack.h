#pragma once

#include "SourcePatch.h"
#include "StudioScene.h"

namespace studio {

/// What was read from the file just now. Nothing for a format that nothing is saved back into.
[[nodiscard]] std::optional<MaterialSource> SourceOf(const std::string& path,
                                                     const ImportedModel& model);

/// The materials of the source as its shapes, in their order, wear them now; where shapes of one
/// material differ, further materials follow.
[[nodiscard]] DressedShapes DressedNow(const MaterialSource& source,
                                       const StudioScene::Shapes& shapes);

/// What saving back would write; nothing is written. Errors: FileFailed naming the file, also when
/// it is no longer the one that was read or may not be written.
[[nodiscard]] SourcePatch PatchOf(const MaterialSource& source, const DressedShapes& now,
                                  PatchFor purpose = PatchFor::Showing);

/// Writes it, each file whole or not at all, and returns the source as it is then. Errors: as
/// above; files that were written before stay.
[[nodiscard]] MaterialSource SaveBack(const MaterialSource& source, const DressedShapes& now);

}  // namespace studio

#pragma once

#include "SourcePatch.h"
#include "StudioScene.h"

#include <stop_token>

namespace studio {

/// Whether materials can be saved back into files of its format.
[[nodiscard]] bool TakesMaterialsBack(const std::string& path);

/// What was read from the file just now, whose format takes materials back.
[[nodiscard]] MaterialSource SourceOf(const std::string& path, const ImportedModel& model);

/// Whether the shapes are those of the source, in their order.
[[nodiscard]] bool AreOf(const MaterialSource& source, const StudioScene::Shapes& shapes);

/// The materials of the source as its shapes, in their order, wear them now; where shapes of one
/// material differ, further materials follow. Images of the same content keep the source's name.
[[nodiscard]] DressedShapes DressedNow(const MaterialSource& source,
                                       const StudioScene::Shapes& shapes);

/// What saving back would write; nothing is written. Errors: FileFailed naming the file, also when
/// it is no longer the one that was read or may not be written.
[[nodiscard]] SourcePatch PatchOf(const MaterialSource& source, const DressedShapes& now,
                                  PatchFor purpose = PatchFor::Showing);

/// Writes it, all files or none, and returns the files beside the source that it is read with from
/// now on. Errors: as above; Failed, when a stop is asked for in time.
std::vector<std::string> SaveBack(const MaterialSource& source, const DressedShapes& now,
                                  const std::stop_token& stop = {});

}  // namespace studio

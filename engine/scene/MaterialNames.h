#pragma once

#include "ShapeChange.h"

#include <string>

namespace studio {

/// Shapes that share a material with others which do not get the change have one of their own from
/// now on, which they share with those that do: "Oak" becomes "Oak 2".
void SplitShared(std::vector<ShapeChange>& changes, const ShapeList& scene);

/// For the shapes and all that share a material with one of them. A name that another material has
/// gets a number.
[[nodiscard]] std::vector<ShapeChange>
RenamedMaterials(const ShapeList& shapes, const std::string& name, const ShapeList& scene);
/// Gives each of them a material that it shares with no other shape.
[[nodiscard]] std::vector<ShapeChange> MadeUnique(const ShapeList& shapes, const ShapeList& scene);

/// Gives shapes the material that another one wears, which they share from now on. Without a name
/// it gets this one, or that with a number.
[[nodiscard]] std::vector<ShapeChange> SharedWith(const StudioShape& wearer,
                                                  const ShapeList& shapes, const std::string& name,
                                                  const ShapeList& scene);

/// They share one material of this name and this link from now on, also with the shapes that have
/// it already and look the same. Where another material has the name, it gets a number.
void ShareNamed(std::vector<ShapeChange>& changes, const std::string& name, const ShapeList& scene,
                const std::shared_ptr<const LibraryLink>& link = {});

/// The materials of these shapes, also where others share them, get this link or lose theirs.
[[nodiscard]] std::vector<ShapeChange> LinkedTo(const std::shared_ptr<const LibraryLink>& link,
                                                const ShapeList& shapes, const ShapeList& scene);

/// All shapes of the scene that share a material with one of these, these included.
[[nodiscard]] ShapeList Sharers(const ShapeList& shapes, const ShapeList& scene);

}  // namespace studio

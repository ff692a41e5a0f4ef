#pragma once

#include "host/MaterialRecord.h"

#include <vector>

struct aiScene;

namespace studio {

/// A surface has one colour here: the colour of each of the scene's materials is multiplied by that
/// of the vertices that wear it, on average. Returns whether the vertices of one visibly differ.
bool TakeVertexColours(const aiScene& scene, std::vector<CorvexDB::udtMaterial>& materials);

}  // namespace studio

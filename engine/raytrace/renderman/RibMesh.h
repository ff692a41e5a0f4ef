#pragma once

#include "Frame.h"
#include "TextStream.h"

namespace studio {

/// What the coordinates of a mesh are for.
enum class RibCoordinates {
    Plain,   ///< nothing of this file; in tiles, as counted
    InTile,  ///< an image of `RibTextures`: triangles are cut where a tile ends
};

/// The item's mesh as polygons. Nothing for a mesh without area.
void WriteRibMesh(TextStream& out, const FrameItem& item, const CorvexDB::udtMaterial& material,
                  RibCoordinates coordinates);

}  // namespace studio

#pragma once

#include "MaterialDragging.h"

#include <QString>

#include <memory>
#include <optional>

class QMimeData;

namespace studio {

class LibraryFile;

/// What travels when an entry is dragged: a material as its own text, a texture as its file, which
/// every program understands. Errors: those of reading the library.
[[nodiscard]] std::unique_ptr<QMimeData> DraggedEntry(LibraryFile& file, std::int32_t index);

struct DroppedMaterial : NamedMaterial {
    EntryOrigin origin{};  ///< with id 0 where it comes out of no library
};

/// The material of a drag; nothing when it carries none.
[[nodiscard]] std::optional<DroppedMaterial> DraggedMaterial(const QMimeData& data);

/// The image file of a drag; empty when it carries none.
[[nodiscard]] QString DraggedTexture(const QMimeData& data);

}  // namespace studio

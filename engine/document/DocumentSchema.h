#pragma once

#include "DatabaseKind.h"

namespace studio {

inline constexpr const char* kDocumentSuffix = "corvex";

/// Scene documents; docs/documents.md describes the tables.
[[nodiscard]] const DatabaseKind& DocumentKind();

/// What the bytes of a chunk belong to.
enum class ChunkOwner : std::int64_t { Vertices = 1, Indices = 2, Texture = 3, Picture = 4 };

/// Pieces that SQLite and the memory can bear, of what may be large.
inline constexpr std::size_t kChunkBytes = std::size_t{8} << 20;

}  // namespace studio

#pragma once

#include "GlHandles.h"
#include "Mesh.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <unordered_map>

namespace studio {

/// A mesh on the graphics device.
class MeshBuffers {
public:
    explicit MeshBuffers(const Mesh& mesh);
    void Draw() const;

private:
    GlVertexArray m_array;
    GlBuffer m_vertices;
    GlBuffer m_indices;
    GLsizei m_count;
};

/// Uploads each mesh once. Lets go of meshes that nobody holds any more and, above its budget, of
/// those that were not drawn for the longest time.
class MeshBufferCache {
public:
    explicit MeshBufferCache(std::int64_t budgetBytes) : m_budgetBytes(budgetBytes) {}

    /// Valid until the next `EndFrame`. Errors: OutOfMemory.
    const MeshBuffers& BuffersOf(const std::shared_ptr<const Mesh>& mesh);
    void EndFrame();

private:
    struct Entry {
        std::weak_ptr<const Mesh> mesh;
        MeshBuffers buffers;
        std::int64_t bytes;
        std::uint64_t lastUse;  ///< a frame

        [[nodiscard]] std::int64_t Bytes() const { return bytes; }
    };

    std::int64_t m_budgetBytes;
    std::uint64_t m_frame = 0;
    std::unordered_map<std::uint64_t, Entry> m_entries;
};

}  // namespace studio

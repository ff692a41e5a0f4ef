#include "MeshBuffers.h"

#include "DropOldest.h"

#include <new>

namespace studio {
namespace {

constexpr GLuint kPosition = 0;
constexpr GLuint kNormal = 1;
constexpr GLuint kUv = 3;

std::int64_t BytesOf(const Mesh& mesh)
{
    return static_cast<std::int64_t>(mesh.vertices.size() * sizeof(Vertex) +
                                     mesh.indices.size() * sizeof(std::uint32_t));
}

void DescribeAttribute(GLuint location, GLint components, std::size_t offset)
{
    glEnableVertexAttribArray(location);
    glVertexAttribPointer(location, components, GL_FLOAT, GL_FALSE, sizeof(Vertex),
                          reinterpret_cast<const void*>(offset));
}

}  // namespace

MeshBuffers::MeshBuffers(const Mesh& mesh) : m_count(static_cast<GLsizei>(mesh.indices.size()))
{
    glBindVertexArray(m_array.Name());
    glBindBuffer(GL_ARRAY_BUFFER, m_vertices.Name());
    glBufferData(GL_ARRAY_BUFFER, static_cast<GLsizeiptr>(mesh.vertices.size() * sizeof(Vertex)),
                 mesh.vertices.data(), GL_STATIC_DRAW);
    glBindBuffer(GL_ELEMENT_ARRAY_BUFFER, m_indices.Name());
    glBufferData(GL_ELEMENT_ARRAY_BUFFER,
                 static_cast<GLsizeiptr>(mesh.indices.size() * sizeof(std::uint32_t)),
                 mesh.indices.data(), GL_STATIC_DRAW);
    DescribeAttribute(kPosition, 3, offsetof(Vertex, position));
    DescribeAttribute(kNormal, 3, offsetof(Vertex, normal));
    DescribeAttribute(kUv, 2, offsetof(Vertex, uv));
    glBindVertexArray(0);
    if (glGetError() == GL_OUT_OF_MEMORY) {
        throw std::bad_alloc();
    }
}

void MeshBuffers::Draw() const
{
    glBindVertexArray(m_array.Name());
    glDrawElements(GL_TRIANGLES, m_count, GL_UNSIGNED_INT, nullptr);
}

const MeshBuffers& MeshBufferCache::BuffersOf(const std::shared_ptr<const Mesh>& mesh)
{
    auto found = m_entries.find(mesh->id);
    if (found == m_entries.end()) {
        found =
            m_entries.emplace(mesh->id, Entry{mesh, MeshBuffers(*mesh), BytesOf(*mesh), m_frame})
                .first;
    }
    found->second.lastUse = m_frame;
    return found->second.buffers;
}

void MeshBufferCache::EndFrame()
{
    std::erase_if(m_entries, [](const auto& item) { return item.second.mesh.expired(); });
    DropOldest(m_entries, m_budgetBytes, [](const Entry& /*entry*/) { return true; });
    ++m_frame;
}

}  // namespace studio

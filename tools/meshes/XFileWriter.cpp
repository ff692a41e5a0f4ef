#include "XFileWriter.h"

#include <iomanip>
#include <ostream>

namespace media {
namespace {

/// A list of the format: its length, its elements with commas between them, a semicolon.
template <typename Elements, typename WriteElement>
void WriteList(std::ostream& out, const Elements& elements, const WriteElement& writeElement)
{
    out << elements.size() << ";\n";
    const char* separator = "";
    for (const auto& element : elements) {
        out << separator;
        writeElement(element);
        separator = ",\n";
    }
    out << ";\n";
}

/// The z axis points the other way in the file.
void WriteVector(std::ostream& out, const Vector& vector)
{
    out << vector[0] << ';' << vector[1] << ';' << -vector[2] << ';';
}

}  // namespace

void WriteXFile(std::ostream& out, const SurfaceMesh& mesh)
{
    // Turning the z axis round mirrors the shape, so the corners change their order too.
    const auto writeTriangle = [&](const std::array<std::uint32_t, 3>& corners) {
        out << "3;" << corners[0] << ',' << corners[2] << ',' << corners[1] << ';';
    };
    out << "xof 0303txt 0032\n" << std::fixed << std::setprecision(6) << "Mesh preview {\n";
    WriteList(out, mesh.points, [&](const SurfacePoint& p) { WriteVector(out, p.position); });
    WriteList(out, mesh.triangles, writeTriangle);
    out << "MeshNormals {\n";
    WriteList(out, mesh.points, [&](const SurfacePoint& p) { WriteVector(out, p.normal); });
    WriteList(out, mesh.triangles, writeTriangle);
    out << "}\nMeshTextureCoords {\n";
    WriteList(out, mesh.points,
              [&](const SurfacePoint& p) { out << p.u << ';' << 1.0 - p.v << ';'; });
    out << "}\n}\n";
}

}  // namespace media

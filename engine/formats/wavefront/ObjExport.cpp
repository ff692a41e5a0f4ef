#include "DocumentFile.h"
#include "MtlMaterials.h"
#include "PlacedMesh.h"
#include "ShapeNames.h"
#include "TextStream.h"
#include "UniqueNames.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <unordered_map>

namespace studio {
namespace {

/// Many readers take a name to end at the first blank, and some read escapes.
std::string WithoutBlanks(const std::string& name)
{
    constexpr std::string_view kUnsafe = " \t#\\/\"'";
    std::string safe = name;
    std::ranges::replace_if(
        safe, [&](char letter) { return kUnsafe.find(letter) != std::string_view::npos; }, '_');
    return safe;
}

class SafeNames {
public:
    explicit SafeNames(Report& report) : m_report(report) {}

    [[nodiscard]] std::string Take(const std::string& name, std::string_view fallback)
    {
        const std::string safe = m_names.Take(WithoutBlanks(ReadableName(name, fallback)), "_");
        if (safe != name && !name.empty()) {
            MaterialNotes(m_report, name)
                .Add(QCoreApplication::translate("Interchange", "Name").toStdString(),
                     Outcome::Approximated,
                     QT_TRANSLATE_NOOP("Interchange", "it is %1 there, where each name is one "
                                                      "word and there only once"),
                     safe);
        }
        return safe;
    }

private:
    Report& m_report;
    UniqueNames m_names;
};

/// The statements of one kind, each value once; what counts them goes on from shape to shape.
template <std::size_t count>
class ObjValues {
public:
    ObjValues(TextStream& out, const char* keyword) : m_out(out), m_keyword(keyword) {}

    /// A number for each vertex. The mesh outlives the call only.
    std::vector<std::size_t> Write(const Mesh& mesh, std::array<float, count> Vertex::*field)
    {
        std::unordered_map<std::string_view, std::size_t> known;
        known.reserve(mesh.vertices.size());
        std::vector<std::size_t> numbers;
        numbers.reserve(mesh.vertices.size());
        for (const Vertex& vertex : mesh.vertices) {
            const auto& value = vertex.*field;
            const std::string_view bytes(reinterpret_cast<const char*>(value.data()),
                                         sizeof(value));
            const auto [entry, isNew] = known.try_emplace(bytes, m_written + 1);
            if (isNew) {
                WriteOne(value);
            }
            numbers.push_back(entry->second);
        }
        return numbers;
    }

    std::size_t WriteOne(const std::array<float, count>& value)
    {
        m_out << m_keyword;
        for (const float number : value) {
            m_out << ' ' << number;
        }
        m_out << '\n';
        return ++m_written;
    }

private:
    TextStream& m_out;
    std::string_view m_keyword;
    std::size_t m_written = 0;
};

class ObjShapes {
public:
    /// Some readers take none where a face has none: one place for those that have none then.
    ObjShapes(TextStream& out, const ImportedModel& scene)
        : m_out(out), m_hasUvs(std::ranges::any_of(scene.meshes, &ImportedMesh::hasCoordinates))
    {
    }

    void Write(const Mesh& mesh, bool hasCoordinates)
    {
        const auto positions = m_positions.Write(mesh, &Vertex::position);
        const auto normals = m_normals.Write(mesh, &Vertex::normal);
        const std::vector<std::size_t> uvs = UvsOf(mesh, hasCoordinates);
        for (std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
            m_out << 'f';
            for (std::size_t corner = 0; corner < 3; ++corner) {
                const std::uint32_t vertex = mesh.indices[i + corner];
                m_out << ' ' << positions[vertex] << '/';
                if (m_hasUvs) {
                    m_out << uvs[vertex];
                }
                m_out << '/' << normals[vertex];
            }
            m_out << '\n';
        }
    }

private:
    std::vector<std::size_t> UvsOf(const Mesh& mesh, bool hasCoordinates)
    {
        if (hasCoordinates) {
            return m_uvs.Write(mesh, &Vertex::uv);
        }
        return m_hasUvs ? std::vector(mesh.vertices.size(), m_uvs.WriteOne({}))
                        : std::vector<std::size_t>();
    }

    TextStream& m_out;
    bool m_hasUvs;
    ObjValues<3> m_positions{m_out, "v"};
    ObjValues<3> m_normals{m_out, "vn"};
    ObjValues<2> m_uvs{m_out, "vt"};
};

void WriteShapes(TextStream& out, const ImportedModel& scene,
                 const std::vector<NamedMaterial>& materials, Report& report)
{
    SafeNames names(report);
    ObjShapes shapes(out, scene);
    for (const ImportedShape& shape : scene.shapes) {
        const ImportedMesh& mesh = scene.meshes[shape.mesh];
        out << "o " << names.Take(shape.name, "Shape") << "\nusemtl "
            << materials[mesh.material].name << '\n';
        shapes.Write(*PlacedMesh(mesh.mesh, shape.worldFromMesh), mesh.hasCoordinates);
    }
}

}  // namespace

void WriteObjScene(const ImportedModel& scene, const std::string& path, Report& report,
                   CorvexMaterial::FileSet& files)
{
    std::vector<NamedMaterial> materials = scene.materials;
    SafeNames names(report);
    for (NamedMaterial& named : materials) {
        named.name = names.Take(named.name, "Material");
    }
    const std::string folder = FolderOfDocument(path);
    const std::string base =
        QFileInfo(QString::fromStdString(path)).completeBaseName().toStdString();
    const std::string library = WithoutBlanks(ReadableName(base, "scene")) + ".mtl";
    // The one that is named first.
    CorvexMaterial::FileWriter& mtl = files.Add(folder + '/' + library);
    CorvexMaterial::FileWriter& obj = files.Add(path);
    mtl.Write(MtlWornBy(Wearers::Shapes, materials, folder, report));
    TextStream out([&](std::string_view text) { obj.Write(text); });
    out << "# Corvex Studio, " << scene.shapes.size() << " shapes\nmtllib " << library << '\n';
    WriteShapes(out, scene, materials, report);
    out.Finish();
}

}  // namespace studio

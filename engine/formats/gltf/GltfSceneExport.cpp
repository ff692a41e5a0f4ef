#include "DocumentFile.h"
#include "GltfBuffer.h"
#include "GltfExport.h"
#include "GltfImages.h"
#include "GltfMaterials.h"
#include "GltfSpheres.h"
#include "PlacedMesh.h"
#include "ShapeNames.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QJsonDocument>
#include <QUrl>

#include <cmath>
#include <limits>

namespace studio {
namespace {

/// Readers take a matrix apart into a move, a turn and a size, which leaves no room for a slant.
bool IsSlanted(const QMatrix4x4& matrix)
{
    constexpr float kUpright = 1.0e-3F;  // a cosine
    for (int axis = 0; axis < 3; ++axis) {
        const QVector3D one = matrix.column(axis).toVector3D();
        const QVector3D other = matrix.column((axis + 1) % 3).toVector3D();
        if (std::abs(QVector3D::dotProduct(one, other)) >
            kUpright * one.length() * other.length()) {
            return true;
        }
    }
    return false;
}

QJsonArray NumbersOf(const QMatrix4x4& matrix)
{
    QJsonArray numbers;
    for (const float number : std::span(matrix.constData(), 16)) {
        numbers.append(double{number});
    }
    return numbers;
}

struct GltfDocument {
    QJsonObject object;
    QByteArray bytes;
};

/// Puts the shapes of a scene into a document.
class GltfNodes {
public:
    GltfNodes(const ImportedModel& scene, GltfBuffer& buffer) : m_scene(scene), m_buffer(buffer)
    {
        for (const ImportedShape& shape : scene.shapes) {
            ++m_uses[shape.mesh];
        }
    }

    void AddTo(QJsonObject& document)
    {
        QJsonArray nodes;
        QJsonArray roots;
        for (const ImportedShape& shape : m_scene.shapes) {
            roots.append(nodes.size());
            nodes.append(NodeOf(shape));
        }
        document["scene"] = 0;
        document["scenes"] = QJsonArray{QJsonObject{{"nodes", roots}}};
        document["nodes"] = nodes;
        document["meshes"] = m_meshes;
    }

private:
    QJsonObject NodeOf(const ImportedShape& shape)
    {
        const QString name = QString::fromStdString(ReadableName(shape.name, "Shape"));
        QJsonObject node{{"name", name}};
        if (IsSlanted(shape.worldFromMesh)) {
            ImportedMesh placed = m_scene.meshes[shape.mesh];
            placed.mesh = PlacedMesh(placed.mesh, shape.worldFromMesh);
            node["mesh"] = AddMesh(placed, name);
            return node;
        }
        const auto [known, isNew] = m_known.try_emplace(shape.mesh);
        if (isNew) {
            // One that several shapes share has no name, for it would be taken for theirs.
            known->second =
                AddMesh(m_scene.meshes[shape.mesh], m_uses[shape.mesh] == 1 ? name : QString());
        }
        node["mesh"] = known->second;
        if (!shape.worldFromMesh.isIdentity()) {
            node["matrix"] = NumbersOf(shape.worldFromMesh);
        }
        return node;
    }

    int AddMesh(const ImportedMesh& mesh, const QString& name)
    {
        QJsonObject primitive = m_buffer.PrimitiveOf(mesh);
        primitive["material"] = static_cast<qint64>(mesh.material);
        QJsonObject object{{"primitives", QJsonArray{primitive}}};
        if (!name.isEmpty()) {
            object["name"] = name;
        }
        m_meshes.append(object);
        return static_cast<int>(m_meshes.size()) - 1;
    }

    const ImportedModel& m_scene;
    GltfBuffer& m_buffer;
    std::map<std::size_t, int> m_uses;   ///< by the mesh of the scene
    std::map<std::size_t, int> m_known;  ///< its number in the document
    QJsonArray m_meshes;
};

enum class Pictures { Named, Inside };

GltfDocument DocumentOf(const ImportedModel& scene, Wearers wearers, const std::string& folder,
                        Pictures pictures, Report& report, CorvexMaterial::FileSet* files)
{
    GltfBuffer buffer(scene);
    GltfImages images(folder, pictures == Pictures::Inside ? &buffer : nullptr, files);
    QJsonObject document{
        {"asset", QJsonObject{{"version", "2.0"}, {"generator", "Corvex Studio"}}}};
    PutGltfMaterials(scene.materials, wearers, images, document, report);
    if (!scene.shapes.empty()) {
        GltfNodes(scene, buffer).AddTo(document);
    }
    buffer.AddTo(document);
    return {document, buffer.Bytes()};
}

void PutBuffer(GltfDocument& document, const QString& uri)
{
    if (document.bytes.isEmpty()) {
        return;
    }
    QJsonObject buffer{{"byteLength", document.bytes.size()}};
    if (!uri.isEmpty()) {
        buffer["uri"] = uri;
    }
    document.object["buffers"] = QJsonArray{buffer};
}

void WriteWord(CorvexMaterial::FileWriter& file, qsizetype word)
{
    const auto bytes = static_cast<std::uint32_t>(word);
    file.Write({reinterpret_cast<const char*>(&bytes), sizeof(bytes)});
}

qsizetype Padded(qsizetype length)
{
    return (length + 3) / 4 * 4;
}

}  // namespace

QByteArray GltfOf(std::span<const NamedMaterial> materials, const std::string& folder,
                  Report& report)
{
    GltfDocument document = DocumentOf(SpheresWearing(materials), Wearers::Samples, folder,
                                       Pictures::Named, report, nullptr);
    PutBuffer(document, "data:application/octet-stream;base64," + document.bytes.toBase64());
    return QJsonDocument(document.object).toJson();
}

void WriteGltfScene(const ImportedModel& scene, const std::string& path, Report& report,
                    CorvexMaterial::FileSet& files)
{
    const std::string folder = FolderOfDocument(path);
    GltfDocument document =
        DocumentOf(scene, Wearers::Shapes, folder, Pictures::Named, report, &files);
    const QString name =
        QFileInfo(QString::fromStdString(path)).completeBaseName() + QStringLiteral(".bin");
    PutBuffer(document, QString::fromLatin1(QUrl::toPercentEncoding(name)));
    // The one that is named first.
    CorvexMaterial::FileWriter& numbers = files.Add(folder + '/' + name.toStdString());
    CorvexMaterial::FileWriter& text = files.Add(path);
    numbers.Write(document.bytes);
    text.Write(QJsonDocument(document.object).toJson());
}

void WriteGlbScene(const ImportedModel& scene, const std::string& path, Report& report,
                   CorvexMaterial::FileSet& files)
{
    // Numbers of the format.
    constexpr std::uint32_t kGltf = 0x46546C67;
    constexpr std::uint32_t kJson = 0x4E4F534A;
    constexpr std::uint32_t kBinary = 0x004E4942;
    constexpr qsizetype kHead = 12;
    constexpr qsizetype kPartHead = 8;
    GltfDocument document = DocumentOf(scene, Wearers::Shapes, FolderOfDocument(path),
                                       Pictures::Inside, report, &files);
    document.bytes.resize(Padded(document.bytes.size()), '\0');
    PutBuffer(document, {});
    QByteArray text = QJsonDocument(document.object).toJson(QJsonDocument::Compact);
    text.resize(Padded(text.size()), ' ');
    const qsizetype length = kHead + kPartHead + text.size() + kPartHead + document.bytes.size();
    if (length > std::numeric_limits<std::uint32_t>::max()) {
        RefuseDocument(path, QCoreApplication::translate(
                                 "Interchange", "the scene is larger than such a file can be; a "
                                                ".gltf file can.")
                                 .toStdString());
    }
    CorvexMaterial::FileWriter& file = files.Add(path);
    for (const qsizetype word :
         {qsizetype{kGltf}, qsizetype{2}, length, text.size(), qsizetype{kJson}}) {
        WriteWord(file, word);
    }
    file.Write(text);
    WriteWord(file, document.bytes.size());
    WriteWord(file, kBinary);
    file.Write(document.bytes);
}

}  // namespace studio

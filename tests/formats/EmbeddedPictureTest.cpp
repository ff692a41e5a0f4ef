#include "Exchange.h"
#include "SampleFolder.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtEndian>

// Pictures that are inside a file, and pictures that do not last.

namespace {

using CorvexTest::Import;
using CorvexTest::Imported;
using CorvexTest::OutcomeFor;
using CorvexTest::SampleFile;

QByteArray ContentOf(const std::string& path)
{
    return CorvexTest::ContentOf(QString::fromStdString(path));
}

QByteArray Number(qsizetype number)
{
    const auto little = qToLittleEndian(static_cast<quint32>(number));
    return {reinterpret_cast<const char*>(&little), sizeof(little)};
}

QByteArray Chunk(const char* type, QByteArray content, char padding)
{
    while (content.size() % 4 != 0) {
        content += padding;
    }
    return Number(content.size()) + QByteArray(type, 4) + content;
}

/// The sample with the picture in it as text.
QByteArray AsText(const QByteArray& picture)
{
    QByteArray text = ContentOf(SampleFile("worn.gltf"));
    return text.replace("steel%20plate.png", "data:image/png;base64," + picture.toBase64());
}

/// The sample as a binary file, the picture behind its three corners.
QByteArray AsBinary(const QByteArray& picture)
{
    QJsonObject document = QJsonDocument::fromJson(ContentOf(SampleFile("worn.gltf"))).object();
    const QByteArray corners(36, '\0');
    const QJsonObject rest{
        {"buffer", 0}, {"byteOffset", corners.size()}, {"byteLength", picture.size()}};
    document["buffers"] = QJsonArray{QJsonObject{{"byteLength", corners.size() + picture.size()}}};
    document["bufferViews"] =
        QJsonArray{QJsonObject{{"buffer", 0}, {"byteLength", corners.size()}}, rest};
    document["images"] = QJsonArray{QJsonObject{{"bufferView", 1}, {"mimeType", "image/png"}},
                                    QJsonObject{{"uri", "normals.png"}}};
    const QByteArray chunks = Chunk("JSON", QJsonDocument(document).toJson(), ' ') +
                              Chunk("BIN\0", corners + picture, '\0');
    return "glTF" + Number(2) + Number(12 + chunks.size()) + chunks;
}

class PictureTest : public testing::Test {
protected:
    Imported ImportBytes(const char* name, const QByteArray& bytes, const std::string& library)
    {
        return Import(m_folder.Write(name, bytes).toStdString(), library);
    }
    [[nodiscard]] std::string Path(const char* name) const
    {
        return m_folder.PathOf(name).toStdString();
    }

    CorvexTest::SampleFolder m_folder;
    QByteArray m_leaf = ContentOf(SampleFile("leaf.png"));
    QByteArray m_steel = ContentOf(SampleFile("steel plate.png"));
};

TEST_F(PictureTest, InsideAFileAreTakenOutBesideTheLibrary)
{
    struct Row {
        const char* file;
        QByteArray bytes;
        const char* picture;  ///< empty when it is left out
    };
    const Row rows[] = {
        {"first.gltf", AsText(m_leaf), "Painted.png"},
        {"same.glb", AsBinary(m_leaf), "Painted.png"},
        {"other.glb", AsBinary(m_steel), "Painted-2.png"},
        {"damaged.gltf", AsText("no picture"), ""},
    };
    for (const auto& [file, bytes, picture] : rows) {
        SCOPED_TRACE(file);
        const Imported imported = ImportBytes(file, bytes, Path("library"));
        const auto& painted = imported.materials.at(0).material;
        const bool kept = *picture != '\0';
        const std::string path = Path("library/Textures/") + picture;
        EXPECT_EQ(painted.Textures.primary, kept ? path : "");
        EXPECT_EQ(OutcomeFor(imported.report, "Painted", "baseColorTexture"),
                  kept ? "mapped" : "dropped");
        EXPECT_EQ(painted.Placement, (CorvexDB::TexturePlacement{0.25F, 0.5F, 0.5F, 0.25F}));
    }
    EXPECT_EQ(QDir(m_folder.PathOf("library/Textures")).entryList(QDir::Files),
              (QStringList{"Painted-2.png", "Painted.png"}));
    EXPECT_EQ(ContentOf(Path("library/Textures/Painted.png")), m_leaf);
    EXPECT_EQ(ContentOf(Path("library/Textures/Painted-2.png")), m_steel);
}

TEST_F(PictureTest, InsideAFileStayThereWithoutALibrary)
{
    const Imported imported = ImportBytes("alone.gltf", AsText(m_leaf), "");
    EXPECT_EQ(imported.materials.at(0).material.Textures.primary, "");
    EXPECT_EQ(OutcomeFor(imported.report, "Painted", "baseColorTexture"), "dropped");
}

TEST_F(PictureTest, InTheTemporaryFolderAreCopiedBesideTheExport)
{
    const QString simulated = m_folder.Write("temporary/~CVX12.jpg", m_leaf);
    qputenv("temp", m_folder.PathOf("temporary").toUtf8());
    studio::NamedMaterial stone{"Stone", {}};
    stone.material.Textures.primary = simulated.toStdString();
    for (const char* file : {"out.mtl", "out.gltf", "out.mtlx"}) {
        studio::Report report;
        studio::ExportMaterials(Path(file), std::span(&stone, 1), report);
    }
    qunsetenv("temp");
    QFile::remove(simulated);
    for (const char* file : {"out.mtl", "out.gltf", "out.mtlx"}) {
        const std::string found = Import(Path(file)).materials.at(0).material.Textures.primary;
        EXPECT_EQ(found, Path("Textures/~CVX12.jpg")) << file;
        EXPECT_EQ(ContentOf(found), m_leaf);
    }
}

}  // namespace

#include "SampleMaterials.h"
#include "SampleFolder.h"
#include "SampleMaterial.h"

namespace LibraryTest {
CorvexDB::udtMaterial WholeMaterial()
{
    CorvexDB::udtMaterial material = CorvexTest::FullMaterial();
    material.Plugin = "Marble";
    material.PluginParameters = {0.5F, -3.0F, 1e10F};
    float alpha = 0.0F;
    for (auto& colour : material.RayTrace.ColorPatternColor) {
        colour.alpha = alpha += 0.25F;
    }
    return material;
}

studio::NewEntry EntryNamed(const std::string& name)
{
    return studio::EntryOfMaterial({name, {}}, "/");
}

TemporaryLibrary::TemporaryLibrary(studio::LibraryKind kind)
    : m_folder(QFileInfo(QStringLiteral("/dev/shm")).isWritable()
                   ? QStringLiteral("/dev/shm/libraries-XXXXXX")
                   : QDir::tempPath() + QStringLiteral("/libraries-XXXXXX")),
      m_kind(kind)
{
    studio::LibraryFile::Create(Path(), kind);
}

std::string TemporaryLibrary::Path() const
{
    return PathOf(m_kind == studio::LibraryKind::Materials ? "some.cvm" : "some.cvt");
}

std::string TemporaryLibrary::PathOf(const char* name) const
{
    return m_folder.filePath(QString::fromUtf8(name)).toStdString();
}

studio::LibraryFile TemporaryLibrary::Open() const
{
    return studio::LibraryFile::Open(Path(), m_kind);
}

QByteArray TemporaryLibrary::Bytes() const
{
    return CorvexTest::ContentOf(QString::fromStdString(Path()));
}

void TemporaryLibrary::SetBytes(const QByteArray& bytes) const
{
    QFile file(QString::fromStdString(Path()));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        throw std::runtime_error("cannot write the library of a test");
    }
}

std::vector<std::string> NamesIn(studio::LibraryFile& library)
{
    std::vector<std::string> names;
    for (std::int32_t index = 0; index < library.Count(); ++index) {
        names.push_back(library.NameAt(index));
    }
    return names;
}

}  // namespace LibraryTest

#include "SampleMaterials.h"

#include "EventLog.h"
#include "RenderService.h"
#include "SqliteMaterialLibrary.h"
#include "SqliteTextureLibrary.h"
#include "Thumbnailer.h"

namespace {

using LibraryTest::ErrorOf;
using LibraryTest::NamesIn;
using testing::ElementsAre;
using testing::HasSubstr;

class SupplierField : public CorvexDB::CustomFields {
public:
    std::vector<std::string> GetCustomMaterialFieldNames() override { return {"Supplier"}; }
};

class LinesOfLog : public CorvexDB::Diagnostics {
public:
    void RecordEvent(std::string_view text) override { lines.emplace_back(text); }
    void DebugTrace(std::string_view) override {}
    std::vector<std::string> lines;
};

class PanelLibrary : public testing::Test {
protected:
    PanelLibrary()
    {
        m_library.SetListener([this](const auto& change) { m_changes.push_back(change); });
    }

    [[nodiscard]] QImage PictureAt(std::int32_t index)
    {
        return QImage::fromData(QByteArray::fromStdString(m_library.File()->ThumbnailAt(index)));
    }

    LibraryTest::TemporaryLibrary m_temporary;
    LinesOfLog m_log;
    studio::RenderService m_rendering;
    studio::Thumbnailer m_thumbnails{m_rendering};
    SupplierField m_fields;
    studio::SqliteMaterialLibrary m_library{{m_thumbnails, m_fields, m_log}};
    std::vector<studio::LibraryChange> m_changes;
};

TEST_F(PanelLibrary, AddsWithNameAndPictureAndTellsHowToTakeItBack)
{
    EXPECT_EQ(m_library.Open(m_temporary.Path()).count, 0);
    CorvexDB::udtMaterial red;
    red.Color = CorvexMaterial::MakeColour({250, 5, 5});
    m_library.AddMaterialToLibrary(red);
    m_library.AddMaterialToLibrary(red);
    red.Plugin = "Brick";
    m_library.AddMaterialToLibrary(red);
    auto& file = *m_library.File();
    EXPECT_THAT(NamesIn(file), testing::Each(testing::Not("")));
    EXPECT_EQ(file.NameAt(1), file.NameAt(0) + " 2");
    EXPECT_EQ(file.NameAt(2), "Brick");
    const QImage picture = PictureAt(0);
    ASSERT_EQ(picture.size(), QSize(128, 128));
    EXPECT_GT(picture.pixelColor(64, 64).red(), 2 * picture.pixelColor(64, 64).green());
    const QColor corner = picture.pixelColor(2, 2);
    EXPECT_NEAR(corner.red(), corner.green(), 40) << "the sphere leaves the corners free";

    const auto added = m_library.MaterialAt(1);
    m_library.DeleteMaterialFromLibrary(1);
    EXPECT_EQ(m_library.Open(m_temporary.Path()).count, 2);
    ASSERT_EQ(m_changes.size(), 4U);
    EXPECT_EQ(m_changes[3].kind, studio::LibraryChange::Kind::Removed);
    EXPECT_EQ(m_changes[3].ids, m_changes[1].ids);
    m_library.File()->Restore(m_changes[3].ids);
    EXPECT_TRUE(m_library.MaterialAt(1) == added);
}

TEST_F(PanelLibrary, TellsTheLogWhatOfAnEntryCannotBeRead)
{
    auto entry = LibraryTest::EntryNamed("odd");
    entry.json = R"({"specular":5,"wrap":9})";
    m_temporary.Open().Add(entry);
    static_cast<void>(m_library.Open(m_temporary.Path()));
    EXPECT_EQ(m_library.MaterialAt(0).Specular, 5);
    EXPECT_THAT(m_log.lines, ElementsAre(testing::AllOf(HasSubstr("odd"), HasSubstr("\"wrap\""))));
}

TEST_F(PanelLibrary, HasNothingOpenAfterARefusal)
{
    for (const std::string& path :
         {m_temporary.PathOf(""), std::string("/dev/null"), std::string("file:///dev/zero")}) {
        static_cast<void>(m_library.Open(m_temporary.Path()));
        EXPECT_THAT(ErrorOf([&] { static_cast<void>(m_library.Open(path)); }),
                    HasSubstr("Library '/"));
        EXPECT_EQ(m_library.File(), nullptr) << path;
    }
    EXPECT_THAT(ErrorOf([&] { m_library.AddMaterialToLibrary({}); }),
                HasSubstr("No material library"));
}

TEST(PanelTextures, AreAddedWithPictureAndFoundAfterAMove)
{
    const LibraryTest::TemporaryLibrary temporary(studio::LibraryKind::Textures);
    const std::string image = temporary.PathOf("wide.png");
    QImage(400, 200, QImage::Format_RGB32).save(QString::fromStdString(image));
    studio::SqliteTextureLibrary library;
    static_cast<void>(library.Open(temporary.Path()));
    library.AddTextureToLibrary(image);
    EXPECT_EQ(library.Textures().Count(), 1);
    EXPECT_EQ(library.Textures().FileAt(0), image);
    EXPECT_EQ(library.File()->JsonAt(0), R"({"file":"./wide.png"})");
    const auto picture =
        QImage::fromData(QByteArray::fromStdString(library.File()->ThumbnailAt(0)));
    EXPECT_EQ(picture.size(), QSize(128, 64));
    EXPECT_THAT(ErrorOf([&] { library.AddTextureToLibrary(temporary.Path()); }),
                HasSubstr(temporary.Path()))
        << "no image";
    library.DeleteTextureFromLibrary(0);
    EXPECT_EQ(library.Textures().Count(), 0);
}

}  // namespace

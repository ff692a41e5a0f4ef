#include "StudioRig.h"

#include "FindTexturesDialog.h"
#include "TextureFinder.h"
#include "TexturePaths.h"
#include <CorvexMaterial/TextureLayers.h>

#include <QTreeWidget>

namespace {

using CorvexDB::TextureFiles;
using testing::ElementsAre;
using testing::IsEmpty;

class FindTextures : public StudioTest::StartedStudio {
protected:
    std::string MakePicture(const QString& name)
    {
        return rig.files.Save("pictures/" + name, Qt::red).toStdString();
    }

    [[nodiscard]] QString Folder() const { return rig.PathOf("pictures"); }

    void Give(std::size_t index, const TextureFiles& textures)
    {
        CorvexDB::udtMaterial material = rig.Shape(index)->Material();
        material.Textures = textures;
        rig.Shape(index)->SetApplied(studio::WholeMaterial(material));
    }

    std::vector<TextureFiles> Textures()
    {
        std::vector<TextureFiles> textures;
        for (const auto& shape : rig.Window().Scene().All()) {
            textures.push_back(shape->Material().Textures);
        }
        return textures;
    }

    std::vector<std::string> Missing()
    {
        return studio::MissingTexturePaths(rig.Window().Scene().All());
    }

    void Search()
    {
        QDir().mkpath(Folder());
        rig.Window().Textures().FindIn(Folder());
    }

    QTreeWidgetItem& Row(int row) { return *rig.Find<QTreeWidget>("textures").topLevelItem(row); }

    QPushButton& Button(QDialogButtonBox::StandardButton button)
    {
        auto& dialog = *rig.Window().findChild<studio::FindTexturesDialog*>();
        return *dialog.findChild<QDialogButtonBox*>()->button(button);
    }
};

TEST_F(FindTextures, CollectsEachMissingPathOnceFromEveryLayer)
{
    const std::string present = MakePicture("present.png");
    Give(0, {"/gone/1", "/gone/2", "/gone/3", "/gone/4", "/gone/5", "/gone/6"});
    Give(1, {present, "/gone/1", "/gone/1", {}, Folder().toStdString(), {}});
    EXPECT_THAT(Missing(), ElementsAre("/gone/1", "/gone/2", "/gone/3", "/gone/4", "/gone/5",
                                       "/gone/6", Folder().toStdString()))
        << "a folder is no texture";
}

TEST_F(FindTextures, ApplyReplacesInAllShapesAsOneStep)
{
    const std::string wood = MakePicture("deep/wood.png");
    const std::string bump = MakePicture("Bump.png");
    Give(0, {"C:\\old\\WOOD.png", {}, {}, "/gone/bump.png", {}, {}});
    Give(1, {wood, "/gone/nowhere.png", {}, {}, {}, {}});
    Give(2, {bump, {}, {}, {}, {}, "C:\\old\\WOOD.png"});
    rig.Select({0});
    const auto before = Textures();
    const auto untouched = rig.Shape(1)->Applied();

    Search();
    EXPECT_EQ(Row(0).toolTip(1).toStdString(), wood);
    EXPECT_TRUE(Row(2).isDisabled()) << "nothing was found for it";
    CorvexTest::Click(Button(QDialogButtonBox::Ok));

    EXPECT_EQ(rig.Shape(0)->Material().Textures, (TextureFiles{wood, {}, {}, bump, {}, {}}));
    EXPECT_EQ(rig.Shape(2)->Material().Textures, (TextureFiles{bump, {}, {}, {}, {}, wood}));
    EXPECT_EQ(rig.Shape(1)->Applied(), untouched);
    EXPECT_EQ(rig.Read(&CorvexMaterial::IMaterial::get_TextureFileName), wood);
    EXPECT_EQ(rig.Find<QLabel>("miscField").text(), "2 textures were replaced.");

    ASSERT_EQ(rig.Window().History().count(), 1);
    rig.Window().History().undo();
    EXPECT_EQ(Textures(), before);
    rig.Window().History().redo();
    EXPECT_THAT(Missing(), ElementsAre("/gone/nowhere.png"));
}

TEST_F(FindTextures, OnlyTickedRowsAreReplacedAndNoneCannotBeApplied)
{
    Give(0, {"/gone/a.png", "/gone/b.png", {}, {}, {}, {}});
    Search();
    EXPECT_FALSE(Button(QDialogButtonBox::Ok).isEnabled());
    EXPECT_TRUE(rig.Find<QLabel>("summary").text().startsWith("No missing texture was found"));
    Button(QDialogButtonBox::Cancel).click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    MakePicture("a.png");
    MakePicture("b.png");
    Search();
    Row(0).setCheckState(0, Qt::Unchecked);
    EXPECT_TRUE(Button(QDialogButtonBox::Ok).isEnabled());
    Row(1).setCheckState(0, Qt::Unchecked);
    EXPECT_FALSE(Button(QDialogButtonBox::Ok).isEnabled());
    Row(1).setCheckState(0, Qt::Checked);
    EXPECT_EQ(rig.Window().History().count(), 0);
    CorvexTest::Click(Button(QDialogButtonBox::Ok));
    EXPECT_THAT(Missing(), ElementsAre("/gone/a.png"));
}

TEST_F(FindTextures, WhenNothingIsMissingSaysSo)
{
    Give(0, {MakePicture("a.png"), {}, {}, {}, {}, {}});
    ASSERT_THAT(Missing(), IsEmpty());
    rig.Find<QAction>("findTextures").trigger();
    ASSERT_EQ(rig.prompts.shown.size(), 1U);
    EXPECT_EQ(rig.prompts.shown.front().text, "No texture is missing.");
}

}  // namespace

#include "LibraryFixture.h"
#include "ShownMarkup.h"

namespace {

using namespace CorvexTest;

// Without a style of a host's: the control is safe by itself.
TEST(ForeignName, IsShownLetterByLetter)
{
    const std::string name = R"(<img src="x">)";
    ControlRig rig;
    rig.host.customFields.names = {name};
    rig.platform.libraryFiles.paths.insert(kMaterials.Path(name));
    rig.Start();
    rig.Control().put_bTexturePanel(true);
    rig.Control().put_bMaterialLibraryPanel(true);
    EXPECT_EQ(rig.Control().LoadMaterialLibrary(kMaterials.File(name)),
              CorvexMaterial::Status::Success);
    rig.Control().put_TextureFileName("/textures/" + name + ".png");
    rig.ChoosePlugin(name, [&] { return Parameters{{name, {}, 0, 0, 0, {}, 0, 0, 0, 0}}; });
    int places = 0;
    EXPECT_EQ(ShownAsMarkup(QString::fromStdString(name), places), "");
    EXPECT_GE(places, 6) << "picture, file, library, two of a plug-in, custom field";
}

}  // namespace

// Nothing that a user names can become a statement of a scene file.

#include "Quoting.h"
#include "RibReader.h"
#include "SphereGrid.h"
#include "StudioScene.h"
#include "StudioSceneExporter.h"
#include "StudioShape.h"

#include <QLocale>

namespace {

using namespace StudioRaytraceTest;
using CorvexDB::udtMaterial;

const std::vector<const char*> kHostile{
    "plain",
    "two words",
    "quote \" end",
    "backslash \\",
    "line\nsphere { 0 100 pigment { rgb <1,0,1> } }",
    "carriage\r#error \"x\"",
    "} } #include \"/etc/passwd\"",
    "*/ #fopen F \"evil.txt\" write /*",
    "\" ] WorldEnd #",
    "Überzug мрамор 石",
    "separator\xE2\x80\xA8#error \"y\"\xC2\x85#error",
    "tab\tbell\a zero-ish \x01",
};

/// Without comments, and without what is between the quotes of an image.
std::string StatementsOf(const std::string& scene)
{
    static const QRegularExpression kComment("^//[^\n]*\n", QRegularExpression::MultilineOption);
    static const QRegularExpression kImage("((?:image_map|bump_map)[^\"\n]*\")[^\n]*\"");
    return QString::fromStdString(scene).remove(kComment).replace(kImage, "\\1").toStdString();
}

/// What a RIB asks for, with its numbers and lists but without its words.
std::vector<std::string> RequestsOf(const std::string& rib)
{
    const RibFile file = ReadRib(rib);
    std::vector<std::string> requests;
    for (const RibRequest& request : file.requests) {
        requests.push_back(request.name + ' ' + std::to_string(request.arguments.size()) + ' ' +
                           std::to_string(request.Numbers().size()));
    }
    return requests;
}

udtMaterial Named(RaytraceRig& rig, const char* name)
{
    const QString wanted = QString::fromUtf8(name);
    const bool possible = !wanted.contains(u'/') && !wanted.contains(u'\n');
    const QByteArray fileName = (possible ? wanted + ".png" : QStringLiteral("other.png")).toUtf8();
    udtMaterial material;
    material.Textures.primary =
        rig.Image(fileName.constData(), [](int x, int y) { return QColor(4 * x, 4 * y, 0); });
    material.Textures.bump = material.Textures.primary;
    material.CustomFields[0] = name;
    material.CustomFields[5] = name;
    return material;
}

studio::RaytraceScene SceneNamed(RaytraceRig& rig, const std::vector<const char*>& names)
{
    SphereGrid grid;
    grid.columns = 4;
    grid.cell = 32;
    for (const char* name : names) {
        grid.materials.push_back(Named(rig, name));
    }
    studio::RaytraceScene scene = grid.Scene();
    scene.names.assign(names.begin(), names.end());
    scene.customFieldNames = {names.back(), "", "", "", "", names.back()};
    return scene;
}

TEST(HostileNames, StayInTheirCommentOrString)
{
    RaytraceRig rig;
    const studio::RaytraceScene plain = SceneNamed(rig, {"plain"});
    const auto plainPovRay = StatementsOf(rig.PovRayText(plain));
    const auto plainRib = RequestsOf(rig.RibText(plain));
    for (const char* name : kHostile) {
        const studio::RaytraceScene scene = SceneNamed(rig, {name});
        // The file of the scene itself is named so too, and with it the folder of its images.
        const QString file = QString::fromUtf8(name).remove(u'/');
        const std::string text = rig.SceneText(scene, file + ".pov");
        EXPECT_EQ(StatementsOf(text), plainPovRay) << text;
        EXPECT_EQ(RequestsOf(rig.SceneText(scene, file + ".rib")), plainRib) << name;
    }
}

TEST(HostileNames, LeadToNoFolderThatPovRayCannotName)
{
    EXPECT_EQ(studio::ImagesBeside("/t/scene.pov").reference, "scene_textures/");
    EXPECT_TRUE(studio::IsPlainPath(studio::ImagesBeside("/t/сцена.pov").reference));
}

TEST(Exporter, AsksForNoTextureThatIsHidden)
{
    studio::StudioScene scene;
    const auto shape = std::make_shared<studio::StudioShape>();
    udtMaterial material;
    material.RayTrace.ColorPattern = 1;
    material.Textures.primary = "hidden.tif";
    material.Textures.bump = "bump.png";
    shape->SetApplied(studio::WholeMaterial(material));
    scene.SetShapes({shape});
    studio::StudioSceneExporter exporter{{}};
    EXPECT_EQ(exporter.TexturesInUse(scene), std::vector<std::string>{"bump.png"});
}

TEST(HostileNames, AreNothingToPovRay)
{
    RaytraceRig rig;
    const studio::RaytraceScene scene = SceneNamed(rig, kHostile);
    const Raytraced result = rig.Raytrace(scene, false);
    ASSERT_FALSE(result.picture.isNull()) << result.messages.right(1500).toStdString();
    for (int y = 0; y < scene.frame.height; y += 32) {
        for (int x = 0; x < scene.frame.width; x += 32) {
            const QColor middle = result.picture.pixelColor(x + 16, y + 16);
            EXPECT_GT(middle.red(), middle.blue() + 20) << "shape at " << x << ", " << y;
        }
    }
    EXPECT_FALSE(QFile::exists(rig.Folder().PathOf("evil.txt")));
}

TEST(SavedImages, OfAnEarlierSceneStay)
{
    RaytraceRig rig;
    const auto saved = [&](const QColor& colour) {
        const std::string file = rig.Image("changing.bmp", [&](int, int) { return colour; });
        static_cast<void>(rig.PovRayText(SceneWith({.Textures = {.primary = file}})));
        return QDir(rig.Folder().PathOf("scene_textures")).entryList(QDir::Files);
    };
    const QStringList first = saved(Qt::red);
    ASSERT_EQ(first.size(), 1);
    EXPECT_EQ(saved(Qt::red), first);
    EXPECT_EQ(saved(Qt::blue).size(), 2);
    const QImage kept(rig.Folder().PathOf("scene_textures/" + first.front()));
    EXPECT_EQ(kept.pixelColor(0, 0), QColor(Qt::red));
}

/// What POV-Ray stops at, or draws otherwise.
TEST(SavedImages, StandForFilesThatPovRayReadsOtherwise)
{
    RaytraceRig rig;
    const auto bytesOf = [&](const char* name, QImage::Format format) {
        QImage image(16, 16, format);
        image.fill(Qt::white);
        return CorvexTest::ContentOf(rig.Folder().Save(name, image));
    };
    const auto keyed = [](QByteArray png, const char* key) {
        constexpr qsizetype kAfterHeader = 33;
        return png.insert(kAfterHeader, QByteArray::fromHex(key));
    };
    const std::vector<QByteArray> files{
        keyed(bytesOf("c.png", QImage::Format_RGB888), "0000000674524e530000000000c8fb194d13"),
        keyed(bytesOf("g.png", QImage::Format_Grayscale8), "0000000274524e530028432665c2"),
        bytesOf("t.jpg", QImage::Format_RGB888).chopped(20),
        QByteArray::fromBase64(  // four colours
            "/9j/7gAOQWRvYmUAZAAAAAAC/9sAQwAbEhQXFBEbFxYXHhwbIChCKyglJShROj0wQmBVZWRfVV1baniZgWpx"
            "kHNbXYW1hpCeo6utq2eAvMm6pseZqKuk/9sAQwEcHh4oIyhOKytOpG5dbqSkpKSkpKSkpKSkpKSkpKSkpKSk"
            "pKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSk/8AAFAgACAAIBAEiAAIRAQMRAQQiAP/EABYAAQEBAAAA"
            "AAAAAAAAAAAAAAADBv/EABQQAQAAAAAAAAAAAAAAAAAAAAD/xAAVAQEBAAAAAAAAAAAAAAAAAAAEBf/EABQR"
            "AQAAAAAAAAAAAAAAAAAAAAD/2gAOBAEAAhEDEQQAAD8AoAUhNMA//9k="),
    };
    SphereGrid grid;
    grid.columns = 4;
    grid.cell = 16;
    for (std::size_t i = 0; i < files.size(); ++i) {
        const QString file = rig.Folder().Write(QStringLiteral("own%1").arg(i), files[i]);
        grid.materials.emplace_back().Textures.primary = file.toStdString();
    }
    EXPECT_EQ(rig.PovRayText(grid.Scene()).find("/own"), std::string::npos);
    EXPECT_FALSE(rig.Raytrace(grid.Scene(), false).picture.isNull());
}

TEST(HostileNames, NumbersKeepTheirDotAndNeverBreakTheFile)
{
    RaytraceRig rig;
    constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
    studio::RaytraceScene scene =
        SceneWith({.Transparency = 4000,
                   .Placement = {0.0F, 0.0F, 0.0F, kNaN},
                   .RayTrace = {.Roughness = std::numeric_limits<float>::infinity(),
                                .NormalDepth = kNaN,
                                .NormalPattern = 3,
                                .MaterialType = 1,
                                .PredefinedType = -7,
                                .ColorPattern = 99}});
    const QLocale own;
    QLocale::setDefault(QLocale(QLocale::German));
    const std::string text = rig.PovRayText(scene);
    QLocale::setDefault(own);
    EXPECT_THAT(StatementsOf(text), testing::Not(testing::ContainsRegex("nan|inf")));
    scene.frame.width = scene.frame.height = 16;
    EXPECT_EQ(rig.Raytrace(scene, false).exitCode, 0);
}

TEST(HostileNames, CommentsAreCutInWholeLetters)
{
    const QString letters(399, u'a');
    EXPECT_EQ(studio::CommentText((letters + QChar(0xE4)).toStdString()), letters.toStdString());
    EXPECT_EQ(studio::CommentText("ends in \\ \\"), "ends in");
}

}  // namespace

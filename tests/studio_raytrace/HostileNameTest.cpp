// Nothing that a user names can become a statement of a scene file.

#include "studio/raytrace/Quoting.h"
#include "tests/studio_raytrace/RaytraceRig.h"
#include "tests/studio_raytrace/RibReader.h"

#include <QFile>
#include <QLocale>

#include <gtest/gtest.h>

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

class HostileName : public testing::TestWithParam<const char*> {};

std::string FirstLines(const std::string& text)
{
    return text.substr(0, 1500);
}

/// Without comments, and without what is between the quotes of an image or a name.
std::vector<std::string> StatementsOf(const std::string& text, const std::string& comment)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        if (line.rfind(comment, 0) == 0) {
            continue;
        }
        const std::size_t begin = line.find('"');
        const std::size_t end = line.rfind('"');
        const bool isNamed = line.find("image_map") != std::string::npos ||
                             line.find("identifier") != std::string::npos ||
                             line.find("texturename") != std::string::npos;
        lines.push_back(isNamed ? line.substr(0, begin) + line.substr(end) : line);
    }
    return lines;
}

studio::RaytraceScene Named(RaytraceRig& rig, const char* name)
{
    const QString wanted = QString::fromUtf8(name);
    const bool possible = !wanted.contains(u'/') && !wanted.contains(u'\n');
    const QByteArray fileName = (possible ? wanted + ".png" : QStringLiteral("other.png")).toUtf8();
    const std::string file =
        rig.Image(fileName.constData(), [](int x, int y) { return QColor(4 * x, 4 * y, 0); });
    studio::RaytraceScene scene = SceneWith(Sphere(), [&](udtMaterial& material) {
        material.Textures.primary = file;
        material.CustomFields[0] = name;
        material.CustomFields[5] = name;
    });
    scene.names = {name};
    scene.customFieldNames = {name, "", "", "", "", name};
    scene.frame.width = scene.frame.height = 32;
    return scene;
}

TEST_P(HostileName, StaysInItsCommentOrString)
{
    RaytraceRig rig;
    const auto plain = StatementsOf(rig.PovRayText(Named(rig, "plain")), "//");
    const auto plainRib = StatementsOf(rig.RibText(Named(rig, "plain")), "#");
    const studio::RaytraceScene scene = Named(rig, GetParam());
    EXPECT_EQ(StatementsOf(rig.PovRayText(scene), "//"), plain)
        << FirstLines(rig.PovRayText(scene));
    const std::string rib = rig.RibText(scene);
    EXPECT_EQ(StatementsOf(rib, "#"), plainRib) << FirstLines(rib);
    EXPECT_EQ(ReadRib(rib).error, "");
    const Raytraced result = rig.Raytrace(scene, false);
    ASSERT_FALSE(result.picture.isNull()) << result.messages.right(1500).toStdString();
    EXPECT_NE(result.picture.pixelColor(16, 16), result.picture.pixelColor(1, 1));
    EXPECT_FALSE(QFile::exists(rig.Folder() + "/evil.txt"));
}

INSTANTIATE_TEST_SUITE_P(Names, HostileName, testing::ValuesIn(kHostile));

TEST(HostileNames, NumbersKeepTheirDotAndNeverBreakTheFile)
{
    RaytraceRig rig;
    studio::RaytraceScene scene = SceneWith(Sphere(), [](udtMaterial& material) {
        material.RayTrace.NormalPattern = 3;
        material.RayTrace.NormalDepth = std::numeric_limits<float>::quiet_NaN();
        material.RayTrace.Roughness = std::numeric_limits<float>::infinity();
        material.RayTrace.ColorPattern = 99;
        material.RayTrace.PredefinedType = -7;
        material.RayTrace.MaterialType = 1;
        material.Placement = {0.0F, 0.0F, 0.0F, std::numeric_limits<float>::quiet_NaN()};
        material.Transparency = 4000;
    });
    const QLocale own;
    QLocale::setDefault(QLocale(QLocale::German));
    const std::string text = rig.PovRayText(scene);
    QLocale::setDefault(own);
    for (const std::string& line : StatementsOf(text, "//")) {
        EXPECT_EQ(line.find("nan"), std::string::npos) << line;
        EXPECT_EQ(line.find("inf"), std::string::npos) << line;
    }
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

#include "Household.h"

#include <QColor>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QtEndian>

namespace {

using LongTest::Household;
using Numbers = std::vector<double>;

constexpr int kParts = 200;
constexpr QSize kPicture(48, 32);
constexpr QRgb kColour = qRgb(200, 100, 50);

/// Low and high corner; each part has its own.
std::array<Numbers, 2> BoxOf(int part)
{
    const Numbers low{3.0 * (part % 20), 2.0 * (part % 13), part % 7 - 0.25 * part};
    return {low, {low[0] + 1.0 + 0.01 * part, low[1] + 1.0, low[2] + 0.5}};
}

QByteArray Model()
{
    QByteArray text = "vt 0 0\nvt 1 0\nvt 1 1\nvt 0 1\n";
    for (int part = 0; part < kParts; ++part) {
        text += "o Part " + QByteArray::number(part) + '\n';
        const auto box = BoxOf(part);
        for (const int corner : {0, 1, 3, 2, 4, 5, 7, 6}) {
            text += 'v';
            for (std::size_t axis = 0; axis < 3; ++axis) {
                text += ' ' + QByteArray::number(box.at(corner >> axis & 1)[axis]);
            }
            text += '\n';
        }
        text += "f -8/1 -5/4 -6/3 -7/2\nf -4/1 -3/2 -2/3 -1/4\nf -8/1 -7/2 -3/3 -4/4\n"
                "f -7/1 -6/2 -2/3 -3/4\nf -6/1 -5/2 -1/3 -2/4\nf -5/1 -8/2 -4/3 -1/4\n";
    }
    return text;
}

QJsonObject JsonIn(const QByteArray& text)
{
    return QJsonDocument::fromJson(text).object();
}

QJsonObject JsonOfGlb(const QByteArray& file)
{
    return JsonIn(file.mid(20, qFromLittleEndian<qint32>(file.constData() + 12)));
}

Numbers NumbersIn(const QJsonValue& values)
{
    Numbers numbers;
    for (const QJsonValue& value : values.toArray()) {
        numbers.push_back(value.toDouble());
    }
    return numbers;
}

auto Near(const Numbers& numbers)
{
    return testing::Pointwise(testing::DoubleNear(1e-4), numbers);
}

void ExpectSeen(const QJsonObject& seen, const QJsonObject& written)
{
    const QJsonObject surface = written["pbrMetallicRoughness"].toObject();
    Numbers colour = NumbersIn(surface["baseColorFactor"]);
    const bool hasPicture = surface.contains("baseColorTexture");
    EXPECT_THAT(NumbersIn(seen["images"]).size(), hasPicture ? 1U : 0U);
    if (hasPicture) {
        const QColor mean(kColour);
        EXPECT_THAT(NumbersIn(seen["images"][0]), Near({static_cast<double>(kPicture.width()),
                                                        static_cast<double>(kPicture.height()),
                                                        mean.redF(), mean.greenF(), mean.blueF()}));
    } else {
        EXPECT_NEAR(seen["alpha"].toDouble(), colour[3], 1e-4);
    }
    colour.pop_back();
    EXPECT_THAT(NumbersIn(seen["color"]), Near(colour));
    EXPECT_NEAR(seen["roughness"].toDouble(), surface["roughnessFactor"].toDouble(), 1e-4);
    EXPECT_NEAR(seen["metallic"].toDouble(), surface["metallicFactor"].toDouble(), 1e-4);
}

TEST(Blender, SeesTheSceneThatWasWritten)
{
    const QString blender = QStandardPaths::findExecutable("blender");
    if (blender.isEmpty()) {
        GTEST_SKIP() << "there is no Blender here";
    }
    const Household user;
    QFile model(user.PathOf("work/parts.obj"));
    ASSERT_TRUE(model.open(QFile::WriteOnly) && model.write(Model()) > 0);
    model.close();
    QImage picture(kPicture, QImage::Format_RGB32);
    picture.fill(kColour);
    ASSERT_TRUE(picture.save(user.PathOf("work/wood.png")));
    const auto dress = [&](const char* shapes, const QStringList& values) {
        EXPECT_EQ(user.Run(QStringList{"scene", "set", "parts.corvex", "--shape", shapes} + values),
                  0);
    };
    ASSERT_EQ(user.Run({"scene", "create", "parts.obj", "--out", "parts.corvex"}), 0);
    dress("Part 1*", {"colour=Bronze", "specular=80", "raytrace.metallic=yes"});
    dress("Part *7", {"colour=Gold", "textures.primary=wood.png"});
    dress("Part 3*", {"specular=25", "transparency=40"});
    ASSERT_EQ(user.Run({"convert", "parts.corvex", "parts.glb"}), 0);

    QProcess process;
    process.setProcessEnvironment(user.Environment());
    process.start(blender,
                  {"-b", "--factory-startup", "--python-exit-code", "1", "--python", BLENDER_SCRIPT,
                   "--", user.PathOf("work/parts.glb"), user.PathOf("work/seen.json")});
    EXPECT_TRUE(process.waitForFinished(240000));
    ASSERT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();

    const QJsonObject seen = JsonIn(CorvexTest::ContentOf(user.PathOf("work/seen.json")));
    const QJsonObject written = JsonOfGlb(CorvexTest::ContentOf(user.PathOf("work/parts.glb")));
    const QJsonObject objects = seen["objects"].toObject();
    EXPECT_EQ(objects.size(), kParts);
    for (int part = 0; part < kParts; ++part) {
        const QJsonObject object = objects[QStringLiteral("Part %1").arg(part)].toObject();
        const auto box = BoxOf(part);
        EXPECT_THAT(NumbersIn(object["low"]), Near(box[0])) << part;
        EXPECT_THAT(NumbersIn(object["high"]), Near(box[1])) << part;
        const int mesh = written["nodes"][part]["mesh"].toInt();
        const int material = written["meshes"][mesh]["primitives"][0]["material"].toInt();
        EXPECT_EQ(object["material"], written["materials"][material]["name"]) << part;
    }
    const QJsonArray materials = written["materials"].toArray();
    EXPECT_EQ(seen["materials"].toObject().size(), materials.size());
    EXPECT_GT(materials.size(), 4);
    for (const QJsonValue& material : materials) {
        const QString name = material["name"].toString();
        SCOPED_TRACE(name.toStdString());
        ExpectSeen(seen["materials"][name].toObject(), material.toObject());
    }
}

}  // namespace

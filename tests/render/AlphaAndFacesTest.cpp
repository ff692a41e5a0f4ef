#include "Drawing.h"

using namespace drawing;

namespace {

bool Seen(const QImage& picture)
{
    return picture.pixel(32, 32) != kBlack;
}

TEST(AlphaTest, ComparesAlphaWithReference)
{
    struct Row {
        int position;
        bool below;  ///< is an alpha below the reference seen
        bool equal;
        bool above;
    };
    const Row rows[] = {{0, true, true, true},  {1, true, false, false}, {2, false, true, false},
                        {3, true, true, false}, {4, false, false, true}, {5, true, false, true},
                        {6, false, true, true}, {7, true, true, true},   {-1, true, true, true},
                        {8, true, true, true}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.position);
        const auto seen = [&](int transparency, int reference) {
            Material material = Glowing(CorvexMaterial::kWhite, transparency);
            material.AlphaTest = row.position;
            material.AlphaTestReference = reference;
            return Seen(DrawSquare(material));
        };
        for (const auto& [transparency, alpha] : {std::pair{0, 255}, {40, 153}, {80, 51}}) {
            EXPECT_EQ(seen(transparency, alpha), row.equal) << alpha;
            EXPECT_EQ(seen(transparency, alpha - 1), row.above) << alpha;
            if (alpha < 255) {
                EXPECT_EQ(seen(transparency, alpha + 1), row.below) << alpha;
            }
        }
        // References are cut to a byte: nothing is above the highest, nothing below the lowest.
        EXPECT_EQ(seen(0, 1000), row.equal);
        EXPECT_EQ(seen(40, -1000), row.above);
    }
}

TEST(Faces, BackIsSeenOnlyWhenDoubleSided)
{
    Material material;
    const QImage front = DrawSquare(material);
    ASSERT_TRUE(Seen(front));
    EXPECT_FALSE(Seen(Draw({Item(Square(), material, TurnedAboutY(180.0F))})));
    material.DoubleSided = true;
    const QImage back = Draw({Item(Square(), material, TurnedAboutY(180.0F))});
    EXPECT_LE(Difference(front, back), 1);  // lit from the viewer's side
}

TEST(Faces, MirroredItemKeepsItsFront)
{
    QMatrix4x4 mirror;
    mirror.scale(-1.0F, 1.0F, 1.0F);
    EXPECT_TRUE(Seen(Draw({Item(Square(), Glowing(0xFFFFFF), mirror)})));
    EXPECT_FALSE(Seen(Draw({Item(Square(), Glowing(0xFFFFFF), mirror * TurnedAboutY(180.0F))})));
    EXPECT_EQ(Draw({Item(Square(), Glowing(0xFFFFFF), mirror)}).pixel(32, 32), kWhite);
}

TEST(Faces, UnevenScaleKeepsNormalsRight)
{
    // A ball pressed flat against the viewer is lit like a square almost everywhere.
    QMatrix4x4 flat;
    flat.scale(1.6F, 1.6F, 0.001F);
    const QImage pressed = Draw({Item(Ball(), {}, flat)});
    const QImage square = DrawSquare({});
    EXPECT_NEAR(qGray(pressed.pixel(40, 40)), qGray(square.pixel(40, 40)), 2);
}

}  // namespace

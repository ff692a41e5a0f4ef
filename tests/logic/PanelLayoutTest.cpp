#include "PanelLayout.h"

#include <climits>
#include <ostream>

namespace CorvexMaterial {

void PrintTo(const LibraryRows& rows, std::ostream* stream)
{
    *stream << rows.texture << '/' << rows.material;
}

namespace {

TEST(ShareHeight, GivesHalfToTexturesAndTheRestToMaterials)
{
    struct Row {
        int available;
        int panel;
        LibraryRows shown;
        LibraryRows expected;
    };
    const Row rows[] = {{20000, 10000, {1, 1}, {6, 5}},
                        // 5 rows: 2.5 goes down to 2; 7 rows: 3.5 up to 4.
                        {5100, 0, {0, 0}, {2, 3}},
                        {7100, 0, {0, 0}, {4, 3}},
                        {0, 10000, {1, 1}, {1, 1}},
                        {-5000, 0, {-2, 0}, {1, 1}},
                        {20000, 12010, {-4, -9}, {4, 3}},
                        {990, 0, {0, 0}, {1, 1}}};
    for (const Row& row : rows) {
        EXPECT_EQ(ShareHeight(row.available, row.panel, row.shown), row.expected);
    }
}

TEST(ShareHeight, AskedAgainWithTheGrownPanelGivesTheSameRows)
{
    constexpr int kPanelWithoutRows = 7990;
    LibraryRows shown{1, 1};
    for (int available = 0; available < 60000; available += 37) {
        const auto panel = [&] {
            return kPanelWithoutRows + shown.texture * 990 + shown.material * 1020;
        };
        shown = ShareHeight(available, panel(), shown);
        EXPECT_EQ(ShareHeight(available, panel(), shown), shown) << available;
        const int left = available - panel();
        EXPECT_LT(left, 1020) << available;
        EXPECT_TRUE(left >= 0 || shown.material == 1) << available;
    }
}

TEST(ShareHeight, ExtremeHeightsDoNotOverflow)
{
    EXPECT_EQ(ShareHeight(INT_MAX, INT_MIN, {INT_MAX / 2000, 1}), (LibraryRows{32767, 32767}));
    EXPECT_EQ(ShareHeight(INT_MIN, INT_MAX, {1, 1}), (LibraryRows{1, 1}));
}

}  // namespace

}  // namespace CorvexMaterial

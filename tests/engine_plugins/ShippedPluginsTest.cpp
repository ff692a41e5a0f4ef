#include "CheckedPlugin.h"
#include "PluginFolder.h"
#include "Seam.h"

namespace studio {
namespace {

using CorvexDB::PluginParameter;

const PluginFolder& Shipped()
{
    static const PluginFolder folder({SHIPPED_PLUGINS});
    return folder;
}

PluginTexture Drawn(const CheckedPlugin& plugin, const std::vector<float>& values, int size = 128)
{
    return plugin.Draw(plugin.Fitted(values), size, [] { return false; });
}

std::vector<PluginParameter> ParametersOf(std::size_t plugin)
{
    return PluginFolder({SHIPPED_PLUGINS}).Records()[plugin + 1].plugin->GetParameters();
}

TEST(ShippedPlugins, UseEveryKindOfParameter)
{
    std::set<CorvexDB::ParameterKind> kinds;
    for (std::size_t i = 0; i < Shipped().Names().size(); ++i) {
        for (const PluginParameter& parameter : ParametersOf(i)) {
            kinds.insert(parameter.kind);
        }
    }
    EXPECT_EQ(kinds.size(), 7U);
}

class ShippedPlugin : public testing::TestWithParam<int> {
protected:
    std::string name = Shipped().Names().at(static_cast<std::size_t>(GetParam()));
    std::shared_ptr<const CheckedPlugin> plugin = Shipped().Find(name);
};

void ExpectTiles(const PluginTexture& texture, const std::string& what)
{
    CorvexTest::ExpectTiles(texture.color, what + ", colors", 1.1);
    if (!texture.bump.isNull()) {
        CorvexTest::ExpectTiles(texture.bump, what + ", bumps", 1.1);
    }
}

TEST_P(ShippedPlugin, DrawsTheSameAgainAndForEveryParameterSomethingElseThatTiles)
{
    const PluginTexture first = Drawn(*plugin, {});
    EXPECT_EQ(Drawn(*plugin, {}).color, first.color);
    ExpectTiles(first, name);
    const auto parameters = ParametersOf(static_cast<std::size_t>(GetParam()));
    for (std::size_t i = 0; i < parameters.size(); ++i) {
        for (const float extreme : {-1e9F, 1e9F}) {
            std::vector<float> values = plugin->Fitted({});
            const float before = values[i];
            values[i] = extreme;
            if (plugin->Fitted(values)[i] == before) {
                continue;
            }
            const std::string what = name + ", " + parameters[i].name;
            const PluginTexture other = Drawn(*plugin, values);
            EXPECT_TRUE(other.color != first.color || other.bump != first.bump) << what;
            if (what != "Wood, Boards") {  // a single one ends where the next begins
                ExpectTiles(other, what);
            }
        }
    }
}

// A preview may lack detail, but seen from afar it is the same picture.
TEST_P(ShippedPlugin, PreviewAndFullSizeLookTheSameFromAfar)
{
    constexpr int kAfar = 16;
    const auto seen = [&](int size) {
        return Drawn(*plugin, {}, size)
            .color.scaled(kAfar, kAfar, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    };
    const QImage small = seen(128);
    const QImage large = seen(512);
    double difference = 0.0;
    for (int i = 0; i < kAfar * kAfar; ++i) {
        const QPoint at(i % kAfar, i / kAfar);
        difference += std::abs(small.pixelColor(at).green() - large.pixelColor(at).green());
    }
    EXPECT_LT(difference / (kAfar * kAfar), 6.0) << name;
}

INSTANTIATE_TEST_SUITE_P(All, ShippedPlugin, testing::Range(0, 5));

// Studs in a row of the picture: how often the relief rises from the sheet.
int StudsInRow(const QImage& bump, double v)
{
    const int row = static_cast<int>(v * bump.height());
    int studs = 0;
    for (int x = 0; x < bump.width(); ++x) {
        const int before = bump.pixelColor((x + bump.width() - 1) % bump.width(), row).red();
        studs += before < 160 && bump.pixelColor(x, row).red() >= 160 ? 1 : 0;
    }
    return studs;
}

TEST(Studs, LieAsFarApartOnEveryShape)
{
    const auto plugin = Shipped().Find("Studs");
    ASSERT_NE(plugin, nullptr);
    constexpr float kRows = 10;
    const auto picture = [&](float shape) {
        return Drawn(*plugin, {shape, 0, kRows, 0.6F, 0, 0, 0, 0, 1}, 512).bump;
    };
    const QImage box = picture(0);
    const QImage cylinder = picture(1);
    const QImage sphere = picture(2);
    for (int row = 0; row < 10; ++row) {
        const double middle = (row + 0.5) / 10;
        EXPECT_EQ(StudsInRow(box, middle), 10);
        // A cylinder as high as it is wide is pi times as long around.
        EXPECT_EQ(StudsInRow(cylinder, middle), 31);
        EXPECT_NEAR(StudsInRow(sphere, middle), 20 * std::sin(M_PI * middle), 0.51) << row;
    }
}

}  // namespace
}  // namespace studio

#include "Drawing.h"

#include "RenderService.h"
#include "Testing.h"

namespace drawing {

using studio::Frame;
using studio::FrameItem;
using studio::Mesh;
using studio::Vertex;

namespace {

std::unique_ptr<studio::RenderService> theService;

/// The renderer of all tests, on its own thread; ends before the application does.
class Session : public testing::Environment {
public:
    void SetUp() override { theService = std::make_unique<studio::RenderService>(); }
    void TearDown() override { theService.reset(); }
};

const auto* const theSession = testing::AddGlobalTestEnvironment(new Session);

}  // namespace

std::shared_ptr<const Mesh> Square()
{
    std::vector<Vertex> corners(4);
    for (std::size_t i = 0; i < 4; ++i) {
        corners[i].position = {i % 2 == 0 ? -1.0F : 1.0F, i < 2 ? -1.0F : 1.0F, 0.0F};
        corners[i].normal = {0.0F, 0.0F, 1.0F};
        corners[i].uv = {i % 2 == 0 ? 0.0F : 1.0F, i < 2 ? 0.0F : 1.0F};
    }
    return studio::MakeMesh(corners, {0, 1, 3, 0, 3, 2});
}

std::shared_ptr<const Mesh> Ball()
{
    constexpr std::uint32_t kColumns = 48;
    constexpr std::uint32_t kRows = 24;
    std::vector<Vertex> vertices;
    std::vector<std::uint32_t> indices;
    for (std::uint32_t row = 0; row <= kRows; ++row) {
        for (std::uint32_t column = 0; column <= kColumns; ++column) {
            const float up = 3.14159265F * (static_cast<float>(row) / kRows - 0.5F);
            const float around = 6.2831853F * static_cast<float>(column) / kColumns;
            Vertex vertex;
            vertex.position = {std::cos(up) * std::sin(around), std::sin(up),
                               std::cos(up) * std::cos(around)};
            vertex.normal = vertex.position;
            vertex.uv = {static_cast<float>(column) / kColumns, static_cast<float>(row) / kRows};
            vertices.push_back(vertex);
        }
    }
    for (std::uint32_t corner = 0; corner + kColumns + 2 < vertices.size(); ++corner) {
        const std::uint32_t above = corner + kColumns + 1;
        if (corner % (kColumns + 1) < kColumns) {
            indices.insert(indices.end(),
                           {corner, corner + 1, above + 1, corner, above + 1, above});
        }
    }
    return studio::MakeMesh(std::move(vertices), std::move(indices));
}

FrameItem Item(const std::shared_ptr<const Mesh>& mesh, const Material& material,
               const QMatrix4x4& worldFromMesh)
{
    return {mesh, std::make_shared<Material>(material), worldFromMesh, false};
}

Material Glowing(CorvexMaterial::Colour colour, int transparency)
{
    Material material;
    material.Color = colour;
    material.Emissive = 100;
    material.Transparency = transparency;
    return material;
}

Frame FrameOf(std::vector<FrameItem> items)
{
    Frame frame;
    frame.items = std::move(items);
    frame.width = frame.height = 64;
    frame.background = 0;
    frame.backdrop = studio::Backdrop::Flat;
    frame.camera.yawDegrees = frame.camera.pitchDegrees = 0.0F;
    frame.camera.fovDegrees = 20.0F;
    frame.camera.distance = 2.0F / std::tan(10.0F * 3.14159265F / 180.0F);
    return frame;
}

QImage Draw(const Frame& frame)
{
    return theService->DrawNow(frame);
}

QImage Draw(std::vector<FrameItem> items)
{
    return Draw(FrameOf(std::move(items)));
}

QMatrix4x4 Moved(float x, float y, float z)
{
    QMatrix4x4 matrix;
    matrix.translate(x, y, z);
    return matrix;
}

QMatrix4x4 TurnedAboutY(float degrees)
{
    QMatrix4x4 matrix;
    matrix.rotate(degrees, 0.0F, 1.0F, 0.0F);
    return matrix;
}

int Difference(const QImage& a, const QImage& b)
{
    if (a.size() != b.size()) {
        return 255;
    }
    int largest = 0;
    for (int y = 0; y < a.height(); ++y) {
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            largest = std::max({largest, std::abs(qRed(p) - qRed(q)),
                                std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
        }
    }
    return largest;
}

void ExpectNear(QRgb seen, QRgb expected, int tolerance)
{
    EXPECT_NEAR(qRed(seen), qRed(expected), tolerance);
    EXPECT_NEAR(qGreen(seen), qGreen(expected), tolerance);
    EXPECT_NEAR(qBlue(seen), qBlue(expected), tolerance);
}

int Encoded(double light)
{
    const double encoded =
        light <= 0.0031308 ? 12.92 * light : 1.055 * std::pow(light, 1.0 / 2.4) - 0.055;
    return static_cast<int>(std::lround(255.0 * encoded));
}

Range BrightnessOf(const QImage& picture, QRgb background)
{
    Range range;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != background) {
                const int gray = qGray(picture.pixel(x, y));
                range.darkest = std::min(range.darkest, gray);
                range.brightest = std::max(range.brightest, gray);
            }
        }
    }
    return range;
}

int CountOf(const QImage& picture, QRgb colour)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            count += picture.pixel(x, y) == colour ? 1 : 0;
        }
    }
    return count;
}

}  // namespace drawing

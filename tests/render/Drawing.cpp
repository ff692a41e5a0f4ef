#include "Drawing.h"

#include "ParametricMesh.h"
#include "RenderService.h"

namespace drawing {

using studio::Frame;
using studio::FrameItem;
using studio::Mesh;

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
    return studio::ParametricMesh(
        [](float u, float v) { return QVector3D(2.0F * u - 1.0F, 2.0F * v - 1.0F, 0.0F); }, {1, 1});
}

std::shared_ptr<const Mesh> Ball()
{
    return studio::SphereMesh(1.0F);
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

QImage DrawSquare(const Material& material)
{
    return Draw({Item(Square(), material)});
}

QImage DrawBall(const Material& material)
{
    return Draw({Item(Ball(), material)});
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

std::vector<QRgb> PixelsOf(const QImage& picture)
{
    const QImage image = picture.convertToFormat(QImage::Format_ARGB32);
    const auto* const first = reinterpret_cast<const QRgb*>(image.constBits());
    return {first, first + image.width() * image.height()};
}

int Difference(const QImage& a, const QImage& b)
{
    if (a.size() != b.size()) {
        return 255;
    }
    const auto one = PixelsOf(a);
    const auto other = PixelsOf(b);
    int largest = 0;
    for (std::size_t i = 0; i < one.size(); ++i) {
        largest = std::max({largest, std::abs(qRed(one[i]) - qRed(other[i])),
                            std::abs(qGreen(one[i]) - qGreen(other[i])),
                            std::abs(qBlue(one[i]) - qBlue(other[i]))});
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

Range BrightnessOf(const QImage& picture)
{
    Range range;
    for (const QRgb pixel : PixelsOf(picture)) {
        if (pixel != kBlack) {
            range.darkest = std::min(range.darkest, qGray(pixel));
            range.brightest = std::max(range.brightest, qGray(pixel));
        }
    }
    return range;
}

int CountOf(const QImage& picture, QRgb colour)
{
    return static_cast<int>(std::ranges::count(PixelsOf(picture), colour));
}

}  // namespace drawing

#pragma once

#include "Frame.h"
#include "Testing.h"

namespace drawing {

using Material = CorvexDB::udtMaterial;

constexpr QRgb kBlack = 0xFF000000;
constexpr QRgb kWhite = 0xFFFFFFFF;
constexpr QRgb kRed = 0xFFFF0000;
constexpr QRgb kGreen = 0xFF00FF00;
constexpr QRgb kBlue = 0xFF0000FF;

/// A square of side 2 around the origin that faces +z.
std::shared_ptr<const studio::Mesh> Square();
std::shared_ptr<const studio::Mesh> Ball();

studio::FrameItem Item(const std::shared_ptr<const studio::Mesh>& mesh, const Material& material,
                       const QMatrix4x4& worldFromMesh = {});
/// Glows evenly in its colour, so that a pixel's value can be told by hand.
Material Glowing(CorvexMaterial::Colour colour, int transparency = 0);

/// 64 by 64 pixels over black, seen from +z, 4 units of the world across at z = 0.
studio::Frame FrameOf(std::vector<studio::FrameItem> items);
QImage Draw(const studio::Frame& frame);
QImage Draw(std::vector<studio::FrameItem> items);
QImage DrawSquare(const Material& material);
QImage DrawBall(const Material& material);

QMatrix4x4 Moved(float x, float y, float z);
QMatrix4x4 TurnedAboutY(float degrees);

/// Row by row.
std::vector<QRgb> PixelsOf(const QImage& picture);
/// Largest difference of any channel of any pixel; 255 for pictures of different size.
int Difference(const QImage& a, const QImage& b);
void ExpectNear(QRgb seen, QRgb expected, int tolerance);
/// The byte of light that is a mixture of black and white.
int Encoded(double light);
/// Brightness of the darkest and the brightest pixel that is not black.
struct Range {
    int darkest = 255;
    int brightest = 0;
};
Range BrightnessOf(const QImage& picture);
int CountOf(const QImage& picture, QRgb colour);

}  // namespace drawing

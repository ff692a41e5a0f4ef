#include "ColourDistance.h"

#include <cmath>

namespace studio {
namespace {

double LabCurve(double t)
{
    return t > 216.0 / 24389.0 ? std::cbrt(t) : (24389.0 / 27.0 * t + 16.0) / 116.0;
}

struct Lab {
    double l;
    double a;
    double b;
};

Lab LabOf(CorvexMaterial::Colour colour)
{
    const CorvexMaterial::Rgb light = CorvexMaterial::LightOf(colour);
    const double r = light.red;
    const double g = light.green;
    const double b = light.blue;
    const double x = LabCurve((0.4124564 * r + 0.3575761 * g + 0.1804375 * b) / 0.95047);
    const double y = LabCurve(0.2126729 * r + 0.7151522 * g + 0.0721750 * b);
    const double z = LabCurve((0.0193339 * r + 0.1191920 * g + 0.9503041 * b) / 1.08883);
    return {116.0 * y - 16.0, 500.0 * (x - y), 200.0 * (y - z)};
}

}  // namespace

double ColourDistance(CorvexMaterial::Colour one, CorvexMaterial::Colour other)
{
    const Lab p = LabOf(one);
    const Lab q = LabOf(other);
    return std::hypot(p.l - q.l, p.a - q.a, p.b - q.b);
}

}  // namespace studio

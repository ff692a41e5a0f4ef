#include "CropFit.h"

#include <CorvexMaterial/Twips.h>

#include <algorithm>
#include <cmath>

namespace CorvexMaterial {

namespace {

constexpr double kAreaTwips = 7710.0;
constexpr int kLargestSmallImage = 510;

static_assert(kCropAreaPixels * kTwipsPerPixel == kAreaTwips);

}  // namespace

CropFit FitIntoCropArea(int imageWidth, int imageHeight)
{
    CropFit fit{kCropAreaPixels, kCropAreaPixels};
    const int longer = std::max(imageWidth, imageHeight);
    const int shorter = std::min(imageWidth, imageHeight);
    if (shorter <= 0) {
        return fit;
    }
    fit.smooth = longer > kLargestSmallImage;
    const double sideTwips = shorter * kAreaTwips / longer;
    fit.proportionsKept = sideTwips >= kTwipsPerPixel;
    if (fit.proportionsKept) {
        int& side = imageWidth < imageHeight ? fit.width : fit.height;
        side = static_cast<int>(std::lround(sideTwips / kTwipsPerPixel));
    }
    return fit;
}

}  // namespace CorvexMaterial

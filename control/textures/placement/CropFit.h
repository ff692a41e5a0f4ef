#pragma once

namespace CorvexMaterial {

/// How the cropping dialog shows an image, in logical pixels.
struct CropFit {
    int width = 0;  ///< of the picture, its borders included
    int height = 0;
    bool proportionsKept = true;
    bool smooth = true;  ///< small images keep their pixels visible
};

/// Side of the working area: 7710 twips, an image of 512 pixels with a border on each side.
inline constexpr int kCropAreaPixels = 514;

/// Fits an image of this many pixels into the working area with its proportions. An image whose
/// short side would fall below one pixel, or of no size at all, fills the area instead.
[[nodiscard]] CropFit FitIntoCropArea(int imageWidth, int imageHeight);

}  // namespace CorvexMaterial

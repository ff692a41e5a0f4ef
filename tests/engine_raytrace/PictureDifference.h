#pragma once

#include "Testing.h"

namespace StudioRaytraceTest {

/// How far two pictures are from each other where a mask says so.
struct PictureDifference {
    int pixels = 0;           ///< that counted
    double mean = 255.0;      ///< of the absolute differences of all channels, of 255
    double similarity = 0.0;  ///< SSIM of the luma in windows of 8 by 8; 1 for the same picture
};

/// White where the picture shows something else than the empty one, less a band along the outline.
[[nodiscard]] QImage InnerMask(const QImage& picture, const QImage& empty, int band);

[[nodiscard]] PictureDifference DifferenceOf(const QImage& one, const QImage& other,
                                             const QImage& mask);

}  // namespace StudioRaytraceTest

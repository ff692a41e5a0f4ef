#pragma once

#include <CorvexMaterial/MaterialRecord.h>

#include <optional>
#include <string>

namespace CorvexMaterial {

// Where a texture's cropped part lies on its image. The cropping dialog works on the texts of its
// four fields: what is shown is what is used.

/// "0.0###": one to four decimals, halves rounded away from zero, a point under any locale, never
/// "-0.0". A value that is not finite reads "0.0".
[[nodiscard]] std::string TextOfFraction(float value);
/// "0.00", rounded the same way.
[[nodiscard]] std::string TextOfTiles(float value);

struct CropTexts {
    std::string originLeft;
    std::string originTop;
    std::string scaleWidth;
    std::string scaleHeight;

    bool operator==(const CropTexts&) const = default;
};

[[nodiscard]] CropTexts TextsOf(const CorvexDB::TexturePlacement& placement);
/// Nothing while one of the texts is no number.
[[nodiscard]] std::optional<CorvexDB::TexturePlacement> PlacementOf(const CropTexts& texts);
/// The whole image.
[[nodiscard]] CropTexts DefaultCrop();

/// Shortens a scale that reaches past the image's right or lower end. Texts that are no numbers,
/// and scales below zero, stay as they are.
[[nodiscard]] CropTexts Clamped(CropTexts texts);

/// In pixels of the picture, its border of one pixel on each side included.
struct PicturePoint {
    double x = 0.0;
    double y = 0.0;
};

struct PictureSize {
    double width = 0.0;
    double height = 0.0;
};

inline constexpr double kPictureBorder = 1.0;

/// The place on the image below a pixel of the picture; outside of 0 to 1 beyond the border.
[[nodiscard]] PicturePoint FractionAt(PicturePoint at, PictureSize size);

/// The origin goes to the point, to 0 when it is closer than half a percent; no extent yet.
[[nodiscard]] CropTexts StartDrag(PicturePoint at, PictureSize size);
/// The extent reaches from the origin to the point, clamped.
[[nodiscard]] CropTexts MoveDrag(CropTexts texts, PicturePoint at, PictureSize size);

}  // namespace CorvexMaterial

#include "TexturePlacement.h"

#include <CorvexMaterial/NumberText.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace CorvexMaterial {

namespace {

constexpr double kOriginSnap = 0.005;

struct DecimalPlaces {
    std::size_t least;
    std::size_t most;
};

/// Digits of the shortest text that reads back to the value, as a person would write it: rounding
/// the binary value instead would send 0.00015 down.
std::string DigitsOf(float magnitude)
{
    std::array<char, std::numeric_limits<float>::max_exponent10 + 64> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), magnitude,
                                   std::chars_format::fixed);
    return {buffer.data(), end.ptr};
}

void AddOneUnitInLastPlace(std::string& digits)
{
    for (std::size_t i = digits.size(); i-- > 0;) {
        if (digits[i] == '.') {
            continue;
        }
        if (digits[i] != '9') {
            ++digits[i];
            return;
        }
        digits[i] = '0';
    }
    digits.insert(digits.begin(), '1');
}

std::string Format(float value, DecimalPlaces places)
{
    std::string digits = DigitsOf(std::isfinite(value) ? std::abs(value) : 0.0F);
    std::size_t point = digits.find('.');
    if (point == std::string::npos) {
        point = digits.size();
        digits += '.';
    }
    const std::size_t kept = point + 1 + places.most;
    digits.resize(std::max(digits.size(), kept), '0');
    const bool up = digits.size() > kept && digits[kept] >= '5';
    digits.resize(kept);
    if (up) {
        AddOneUnitInLastPlace(digits);
    }
    const std::size_t shortest = digits.find('.') + 1 + places.least;
    while (digits.size() > shortest && digits.back() == '0') {
        digits.pop_back();
    }
    const bool zero = digits.find_first_not_of("0.") == std::string::npos;
    return (value < 0.0F && !zero ? "-" : "") + digits;
}

std::string TextOfFraction(double value)
{
    return CorvexMaterial::TextOfFraction(static_cast<float>(value));
}

std::string ClampedScale(const std::string& origin, const std::string& scale)
{
    const auto from = NumberFromText(origin);
    const auto extent = NumberFromText(scale);
    return from && extent && *from + *extent > 1.0 ? TextOfFraction(1.0 - *from) : scale;
}

std::string SnappedOrigin(double origin)
{
    return TextOfFraction(origin < kOriginSnap ? 0.0 : origin);
}

std::string ScaleTo(double end, const std::string& origin)
{
    return TextOfFraction(end - NumberFromText(origin).value_or(0.0));
}

double FractionAlong(double position, double extent)
{
    // A picture may be so thin that nothing is left between its borders.
    return (position - kPictureBorder) / std::max(extent - 2 * kPictureBorder, 1.0);
}

}  // namespace

std::string TextOfFraction(float value)
{
    return Format(value, {1, 4});
}

std::string TextOfTiles(float value)
{
    return Format(value, {2, 2});
}

CropTexts TextsOf(const CorvexDB::TexturePlacement& placement)
{
    return {TextOfFraction(placement.originU), TextOfFraction(placement.originV),
            TextOfFraction(placement.scaleU), TextOfFraction(placement.scaleV)};
}

std::optional<CorvexDB::TexturePlacement> PlacementOf(const CropTexts& texts)
{
    const auto originU = SingleFromText(texts.originLeft);
    const auto originV = SingleFromText(texts.originTop);
    const auto scaleU = SingleFromText(texts.scaleWidth);
    const auto scaleV = SingleFromText(texts.scaleHeight);
    if (!originU || !originV || !scaleU || !scaleV) {
        return std::nullopt;
    }
    return CorvexDB::TexturePlacement{*originU, *originV, *scaleU, *scaleV};
}

CropTexts DefaultCrop()
{
    return TextsOf(CorvexDB::TexturePlacement{});
}

CropTexts Clamped(CropTexts texts)
{
    texts.scaleWidth = ClampedScale(texts.originLeft, texts.scaleWidth);
    texts.scaleHeight = ClampedScale(texts.originTop, texts.scaleHeight);
    return texts;
}

PicturePoint FractionAt(PicturePoint at, PictureSize size)
{
    return {FractionAlong(at.x, size.width), FractionAlong(at.y, size.height)};
}

CropTexts StartDrag(PicturePoint at, PictureSize size)
{
    const PicturePoint origin = FractionAt(at, size);
    return {SnappedOrigin(origin.x), SnappedOrigin(origin.y), TextOfFraction(0.0),
            TextOfFraction(0.0)};
}

CropTexts MoveDrag(CropTexts texts, PicturePoint at, PictureSize size)
{
    const PicturePoint end = FractionAt(at, size);
    texts.scaleWidth = ScaleTo(end.x, texts.originLeft);
    texts.scaleHeight = ScaleTo(end.y, texts.originTop);
    return Clamped(std::move(texts));
}

}  // namespace CorvexMaterial

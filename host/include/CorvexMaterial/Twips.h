#pragma once

namespace CorvexMaterial {

/// Heights of rows and crops are given in twips, of which a logical pixel has this many.
inline constexpr int kTwipsPerPixel = 15;

}  // namespace CorvexMaterial

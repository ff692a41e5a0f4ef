#pragma once

namespace studio {

class TourStudio;

/// The shipped libraries, a search, a material put on a shape, and its raytraced preview where
/// there is a raytracer.
void ShowLibraries(TourStudio& studio);

}  // namespace studio

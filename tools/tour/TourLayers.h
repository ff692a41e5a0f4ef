#pragma once

namespace studio {

class TourStudio;

/// A picture on every texture layer, and every wrap.
void ShowLayers(TourStudio& studio);
/// Every plug-in, and its parameters changed.
void ShowPlugins(TourStudio& studio);

}  // namespace studio

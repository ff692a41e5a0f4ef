#pragma once

namespace studio {

class ViewportWidget;

/// From now on tools for people who do not see it are told of every viewport: a picture with a
/// name, what is selected in it (the widget's accessible description) and where it is seen from.
void MakeViewportsAccessible();

/// The selection or the camera is another one.
void TellAccessibly(ViewportWidget& viewport);

}  // namespace studio

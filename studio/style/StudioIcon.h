#pragma once

class QIcon;

namespace studio {

/// The program's icon: a lit ball on a dark tile, drawn at each size that desktops ask for.
[[nodiscard]] QIcon StudioIcon();

}  // namespace studio

#pragma once

#include <QString>

namespace studio {

/// The real POV-Ray: the configured path when it names an executable file, else what the system
/// finds by its usual name; empty when there is none.
[[nodiscard]] QString FindPovRay(const QString& configured);

/// The launcher that the control starts instead: beside this program, or where the variable
/// CORVEX_POVRAY_LAUNCHER says. Empty when it is not there.
[[nodiscard]] QString FindPovRayLauncher();

/// Has the launchers that this process starts use this POV-Ray.
void UsePovRay(const QString& program);

}  // namespace studio

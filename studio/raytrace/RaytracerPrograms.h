#pragma once

#include <QString>

namespace studio {

/// The program that a text names, by its path or as the system finds programs; empty when it names
/// none. What lies in the current folder is not found by its name.
[[nodiscard]] QString NamedProgram(const QString& text);

/// The real POV-Ray: the configured program, else what the system finds by its usual name; empty
/// when there is none.
[[nodiscard]] QString FindPovRay(const QString& configured);

/// The launcher that the control starts instead: beside this program, or where the variable
/// CORVEX_POVRAY_LAUNCHER says. Empty when it is not there.
[[nodiscard]] QString FindPovRayLauncher();

/// Has the launchers that this process starts use this POV-Ray.
void UsePovRay(const QString& program);

}  // namespace studio

#pragma once

#include "Raytracers.h"

#include <QString>

namespace studio {

/// The program that a text names, by its path or as the system finds programs; empty when it names
/// none. What lies in the current folder is not found by its name.
[[nodiscard]] QString NamedProgram(const QString& text);

/// A raytracer's own program: the configured one, else what the system finds by its usual name. A
/// raytracer without such a name has what is configured, whether it is there or not. Empty when
/// there is none.
[[nodiscard]] QString FindProgram(const CorvexMaterial::ProgramFacts& facts,
                                  const QString& configured);

/// The launcher that the control starts instead; empty when it is not there.
[[nodiscard]] QString FindLauncher(const CorvexMaterial::ProgramFacts& facts);

/// What is named to the programs that this process starts.
[[nodiscard]] QString PassedProgram(const CorvexMaterial::ProgramFacts& facts);
void PassProgram(const CorvexMaterial::ProgramFacts& facts, const QString& program);

}  // namespace studio

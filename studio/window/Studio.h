#pragma once

#include "ProgramArguments.h"

class QApplication;

namespace studio {

/// Name, version and look of the desktop program.
void NameApplication(QApplication& application);

/// Shows the window, with the model if one is named, until the user quits.
[[nodiscard]] ExitCode RunStudio(int& argc, char** argv, const QString& model);

}  // namespace studio

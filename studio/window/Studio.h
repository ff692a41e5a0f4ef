#pragma once

#include "ProgramArguments.h"

class QApplication;

namespace studio {

class Themes;

/// Name, version and looks of the desktop program; the looks are the application's.
Themes& NameApplication(QApplication& application);

/// Shows the window, with the model if one is named, until the user quits.
[[nodiscard]] ExitCode RunStudio(int& argc, char** argv, const QString& model);

}  // namespace studio

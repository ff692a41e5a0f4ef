#pragma once

#include "LibraryCommands.h"

namespace studio {

/// The formats of this folder for the library commands. The notes are what is approximated or
/// dropped, a line each, and a summary.
[[nodiscard]] ForeignFormats InterchangeFormats();

}  // namespace studio

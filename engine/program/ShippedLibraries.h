#pragma once

#include <QString>
#include <QStringList>

namespace studio {

/// The libraries that come with the program, in the build tree and where it is installed. Empty
/// when there are none.
[[nodiscard]] QString ShippedLibraryFolder();

/// Copies what the second folder does not have yet, folders within included; textures first, so
/// that a library is never there without them. Whatever is there already stays as it is, be it
/// older or the user's own, but for a copy that a power cut left empty or in part. A file is there
/// completely or not at all.
/// Returns a sentence for each file that could not be copied.
[[nodiscard]] QStringList DeliverLibraries(const QString& shipped, const QString& libraries);

}  // namespace studio

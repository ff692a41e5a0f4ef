#pragma once

#include <QString>

namespace studio {

/// Puts the libraries that every user begins with into his library folder: copies of the shipped
/// ones, or empty ones where none are shipped. What is there stays.
void ProvideFirstLibraries(const QString& libraryFolder);

/// Makes the shipped images, which are not copied, to be found beside the libraries, wherever this
/// installation is by now.
void LinkShippedImages(const QString& libraryFolder);

/// Where the libraries of this installation are; empty when it has none.
[[nodiscard]] QString ShippedLibraryFolder();

}  // namespace studio

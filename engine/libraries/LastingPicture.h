#pragma once

#include <QByteArray>
#include <QString>

#include <string>

namespace CorvexMaterial {
class FileSet;
}

namespace studio {

/// The path under which a material of a library in this folder finds its primary texture again. The
/// picture of a simulated raytrace material lies in the temporary folder, where it does not last:
/// it is copied to `Textures/` beside the library, and goes again with the set of files if there is
/// one. Any other path stays. Errors: FileFailed.
[[nodiscard]] std::string WithLastingPicture(const std::string& primary,
                                             const std::string& libraryFolder,
                                             CorvexMaterial::FileSet* files = nullptr);

/// Puts a picture into `Textures/` in the folder and returns its path. A file that exists is never
/// replaced: one of the same content serves again, beside any other a number is added to the name.
/// Errors: FileFailed.
[[nodiscard]] std::string StorePicture(const QByteArray& bytes, const QString& name,
                                       const std::string& folder,
                                       CorvexMaterial::FileSet* files = nullptr);

}  // namespace studio

#pragma once

#include "RaytraceImages.h"

#include <set>
#include <string>

namespace studio {

/// The stock textures of POV-Ray's include files. Their colours are meant as a screen shows them;
/// in a scene whose light is linear they would come out pale. So they are copied beside the scene,
/// with their colours marked as such.
class PovRayIncludes {
public:
    explicit PovRayIncludes(RaytraceImages::Place place);

    /// What a scene includes in place of the named file: the copy, or the file itself where
    /// POV-Ray's own are not found. Errors: FileFailed.
    [[nodiscard]] std::string Named(const std::string& file);

private:
    void Copy(const QString& file);

    QString m_source;  ///< POV-Ray's folder of include files; empty when it is not known
    RaytraceImages::Place m_place;
    std::set<std::string> m_copied;
};

/// An include file's text with its colours marked as seen on a screen.
[[nodiscard]] QString WithScreenColours(QString text);

}  // namespace studio

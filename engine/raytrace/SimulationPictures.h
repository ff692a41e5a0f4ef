#pragma once

#include "FolderUse.h"

#include <QString>

#include <set>
#include <string>

namespace studio {

/// The pictures that stand for raytrace materials, in a folder of their own, which several running
/// programs share. While one of them runs, any shape or undo step may refer to any picture; once
/// the last has ended, only what is saved does.
class SimulationPictures {
public:
    explicit SimulationPictures(QString folder);

    /// Moves a finished picture here and returns its new path. Errors: FileFailed, and the picture
    /// is where it was.
    [[nodiscard]] std::string Keep(const std::string& picture);
    /// Removes every other picture, unless another program uses the folder.
    void KeepOnly(const std::set<std::string>& referredTo) const;

private:
    QString m_folder;
    CorvexMaterial::FolderUse m_use;
};

}  // namespace studio

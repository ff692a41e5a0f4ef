#pragma once

#include "ImportedModel.h"

#include <map>

struct aiScene;

namespace studio {

/// The pictures inside a file, each once.
class PicturesInside {
public:
    /// All of them together may have so many bytes; what is beyond comes without.
    PicturesInside(const aiScene& scene, std::vector<EmbeddedPicture>& pictures,
                   qsizetype mostBytes);

    /// Notes the picture of this name, "*0" and so on or a file's, as a material's primary texture.
    /// Nothing of what is not inside the file.
    void Take(const std::string& name, std::size_t material);

private:
    const aiScene& m_scene;
    std::vector<EmbeddedPicture>& m_pictures;
    std::map<std::string, std::size_t> m_indexes;
    qsizetype m_left;
};

}  // namespace studio

#pragma once

#include "FileWriting.h"
#include "TextureCache.h"

#include <QSize>
#include <QString>

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace studio {

/// An image file as a scene file names it.
struct RaytraceImage {
    std::string path;
    std::string_view kind;  ///< POV-Ray's word for its type; "tiff" for RIB
    QSize size;             ///< pixels
};

/// Which image files a raytracer reads.
struct ImageReader {
    const char* savedType;    ///< that all others are saved as, by the toolkit's word
    const char* savedSuffix;  ///< with its dot
    std::string_view savedKind;
    /// The raytracer's word for the type of a file that it reads as it is; empty for others. Null
    /// when it is to read none.
    std::string_view (*kindOf)(const QString& file);
};

/// Finds or makes an image file that the raytracer can read for each texture of a scene. The user's
/// own file serves as it is when its type and path allow; anything else, drawn textures and the
/// pattern for missing files included, is saved into a folder of ours, under a name by its content.
class RaytraceImages {
public:
    using Lookup = std::function<TexturePointer(const std::string&)>;
    struct Place {
        QString folder;         ///< created when the first file goes there
        std::string reference;  ///< how the scene file names that folder, with its separator
        CorvexMaterial::Lifetime lifetime = CorvexMaterial::Lifetime::Lasting;
    };

    RaytraceImages(ImageReader reader, Lookup lookup, Place place);

    /// The texture's pixels; null for an empty path.
    [[nodiscard]] TexturePointer TextureOf(const std::string& file) const;
    /// Errors: FileFailed, when a file has to be saved and cannot.
    [[nodiscard]] RaytraceImage ImageOf(const std::string& file);
    [[nodiscard]] RaytraceImage ImageOf(const Texture& drawn);

    /// Where files of ours lie.
    [[nodiscard]] const Place& Beside() const { return m_place; }

private:
    [[nodiscard]] RaytraceImage FoundOrSaved(const std::string& file);
    [[nodiscard]] std::string_view OwnKind(const std::string& file) const;

    ImageReader m_reader;
    Lookup m_lookup;
    Place m_place;
    std::map<std::string, RaytraceImage> m_byFile;
    std::map<std::uint64_t, RaytraceImage> m_saved;  ///< by the texture's id
};

}  // namespace studio

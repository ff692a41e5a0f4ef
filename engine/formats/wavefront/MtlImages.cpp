#include "MtlTerms.h"
#include "TextureReference.h"

#include <QCoreApplication>

namespace studio {
namespace {

using CorvexDB::udtMaterial;

constexpr std::int32_t kAlphaBumps = 2;
constexpr std::int32_t kAlphaShines = 3;

constexpr const char* kMtlNoLayer =
    QT_TRANSLATE_NOOP("Interchange", "there is no layer for it in a material");
constexpr const char* kUneven =
    QT_TRANSLATE_NOOP("Interchange", "images repeat alike both ways, in whole tiles");
constexpr const char* kOnePlacement = QT_TRANSLATE_NOOP(
    "Interchange", "placed like the material's first image: there is one placement for all");

class MtlImageTaking {
public:
    MtlImageTaking(const MtlMaterial& source, const std::string& folder, MaterialNotes& notes,
                   udtMaterial& material)
        : m_source(source), m_folder(folder), m_notes(notes), m_material(material)
    {
    }

    void Take()
    {
        TakeImages();
        TakeAlphaImage();
        TakeRelief();
        TakeEnvironment();
    }

private:
    [[nodiscard]] bool Same(const MtlMap& map, const char* other) const
    {
        const MtlMap* match = m_source.Map(other);
        return match != nullptr &&
               (match->file == map.file || FindReferenced(match->file, m_folder).path ==
                                               FindReferenced(map.file, m_folder).path);
    }

    std::string TakeFile(const char* keyword, const MtlMap& map)
    {
        const FoundTexture found = FindReferenced(map.file, m_folder);
        const char* placing = TakePlacement(map);
        if (!found.exists) {
            m_notes.Approximated(keyword,
                                 QT_TRANSLATE_NOOP("Interchange", "the image file is missing"));
        } else {
            m_notes.Add(keyword, *placing == '\0' ? Outcome::Mapped : Outcome::Approximated,
                        placing);
        }
        NoteOptions(keyword, map);
        return found.path;
    }

    /// What differs, as a note; empty when nothing does.
    const char* TakePlacement(const MtlMap& map)
    {
        if (m_window) {
            return *m_window == map.window ? "" : kOnePlacement;
        }
        m_window = map.window;
        return PlaceWindow(TopDown(map.window), m_material) ? "" : kUneven;
    }

    void NoteOptions(const std::string& keyword, const MtlMap& map)
    {
        if (map.clamp) {
            m_notes.Dropped(keyword + " -clamp",
                            QT_TRANSLATE_NOOP("Interchange", "images always repeat"));
        }
        for (const std::string& option : map.ignored) {
            m_notes.Dropped(keyword + " " + option,
                            QT_TRANSLATE_NOOP("Interchange", "images are used as they are"));
        }
    }

    void TakeImages()
    {
        auto& textures = m_material.Textures;
        if (const MtlMap* map = m_source.Map("map_kd")) {
            textures.primary = TakeFile("map_Kd", *map);
        }
        if (const MtlMap* map = m_source.Map("decal")) {
            textures.overlay = TakeFile("decal", *map);
            m_material.OverlayTranslucency = 0.0F;
        }
        if (const MtlMap* map = m_source.Map("map_ks")) {
            if (map->channel == 'm' && Same(*map, "map_kd")) {
                m_material.TextureAlphaChannelUse = kAlphaShines;
                m_notes.Mapped("map_Ks");
            } else {
                textures.specular = TakeFile("map_Ks", *map);
            }
        }
        NoteFollowing("map_ka", "map_Ka");
        NoteFollowing("map_ke", "map_Ke");
    }

    /// What glows and what lies in shadow has the surface's image anyway.
    void NoteFollowing(const char* keyword, const char* written)
    {
        const MtlMap* map = m_source.Map(keyword);
        if (map == nullptr) {
            return;
        }
        if (Same(*map, "map_kd")) {
            m_notes.Mapped(written);
        } else {
            m_notes.Dropped(written, kMtlNoLayer);
        }
    }

    void TakeAlphaImage()
    {
        const MtlMap* map = m_source.Map("map_d");
        if (map == nullptr) {
            return;
        }
        const bool ownAlpha = Same(*map, "map_kd");
        if (ownAlpha) {
            m_notes.Mapped("map_d");
        } else {
            m_material.Textures.alpha = TakeFile("map_d", *map);
        }
    }

    void TakeRelief()
    {
        const MtlMap* map = m_source.Map("bump");
        const MtlMap* displacement = m_source.Map("disp");
        if (map != nullptr && map->channel == 'm' && Same(*map, "map_kd")) {
            m_material.TextureAlphaChannelUse = kAlphaBumps;
            m_notes.Mapped("bump");
        } else if (map != nullptr) {
            m_material.Textures.bump = TakeFile("bump", *map);
            if (map->bumpMultiplier != 1.0F) {
                m_notes.Approximated(
                    "bump -bm", QT_TRANSLATE_NOOP("Interchange", "all bumps are of one height"));
            }
        } else if (displacement != nullptr) {
            m_material.Textures.bump = TakeFile("disp", *displacement);
            m_notes.Approximated("disp", QT_TRANSLATE_NOOP("Interchange", "as a bump map"));
        }
        if (map != nullptr && displacement != nullptr) {
            m_notes.Dropped("disp", kMtlNoLayer);
        }
    }

    void TakeEnvironment()
    {
        if (const MtlMap* map = m_source.Map("refl")) {
            const FoundTexture found = FindReferenced(map->file, m_folder);
            m_material.Textures.environment = found.path;
            m_notes.Approximated(
                "refl", found.exists
                            ? QT_TRANSLATE_NOOP("Interchange", "taken for a picture of all around "
                                                               "(latitude and longitude)")
                            : QT_TRANSLATE_NOOP("Interchange", "the image file is missing"));
        }
    }

    const MtlMaterial& m_source;
    const std::string& m_folder;
    MaterialNotes& m_notes;
    udtMaterial& m_material;
    std::optional<ImageWindow> m_window;  ///< of the first image
};

}  // namespace

void TakeMtlImages(const MtlMaterial& source, const std::string& folder, MaterialNotes& notes,
                   udtMaterial& material)
{
    MtlImageTaking(source, folder, notes, material).Take();
}

}  // namespace studio

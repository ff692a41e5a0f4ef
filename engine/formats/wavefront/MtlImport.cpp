#include "DocumentFile.h"
#include "MaterialModel.h"
#include "MtlMaterials.h"
#include "MtlTerms.h"
#include "ShapeNames.h"

#include <QCoreApplication>

#include <array>

namespace studio {
namespace {

struct IgnoredTerm {
    const char* keyword;
    const char* note;
};

constexpr const char* kNoSuchImage =
    QT_TRANSLATE_NOOP("Interchange", "there is no layer for it in a material");
constexpr const char* kNoSuchAmount =
    QT_TRANSLATE_NOOP("Interchange", "there is no such amount in a material");

/// What a material cannot take. Keywords in lower case, as the file's reader keeps them.
constexpr std::array kIgnoredMaps{
    IgnoredTerm{"map_ns", kNoSuchImage},
    IgnoredTerm{"map_pr", kNoSuchImage},
    IgnoredTerm{"map_pm", kNoSuchImage},
    IgnoredTerm{"map_ps", kNoSuchImage},
    IgnoredTerm{"map_tr", kNoSuchImage},
    IgnoredTerm{"norm", QT_TRANSLATE_NOOP("Interchange",
                                          "it holds directions; a bump map here holds heights")},
};
constexpr std::array kIgnoredNumbers{
    IgnoredTerm{"ni",
                QT_TRANSLATE_NOOP("Interchange", "nothing bends the light through a material")},
    IgnoredTerm{"ps", kNoSuchAmount},
    IgnoredTerm{"pcr", kNoSuchAmount},
    IgnoredTerm{"aniso", kNoSuchAmount},
    IgnoredTerm{"anisor", kNoSuchAmount},
    IgnoredTerm{"sharpness", kNoSuchAmount},
};

/// Written by most programs for every material; no news when it says "nothing special".
bool IsNeutral(const MtlMaterial& source, const std::string& keyword, bool transparent)
{
    const float value = source.Number(keyword, 0.0F);
    return keyword == "ni" ? value == 1.0F || !transparent : value == 0.0F;
}

void NoteTheRest(const MtlMaterial& source, bool transparent, MaterialNotes& notes)
{
    for (const IgnoredTerm& term : kIgnoredMaps) {
        if (source.Map(term.keyword) != nullptr) {
            notes.Dropped(term.keyword, term.note);
        }
    }
    for (const IgnoredTerm& term : kIgnoredNumbers) {
        if (source.Has(term.keyword) && !IsNeutral(source, term.keyword, transparent)) {
            notes.Dropped(term.keyword, term.note);
        }
    }
    if (source.Number("illum", 2.0F) > 2.0F) {
        notes.Approximated("illum",
                           QT_TRANSLATE_NOOP("Interchange", "as a plain surface with highlights"));
    }
    for (const std::string& keyword : source.notUnderstood) {
        notes.Dropped(keyword, QT_TRANSLATE_NOOP("Interchange", "not understood"));
    }
}

}  // namespace

std::vector<NamedMaterial> MaterialsOfMtl(const QByteArray& bytes, const std::string& path,
                                          Report& report)
{
    const std::string folder = FolderOfDocument(path);
    const std::string text = TextOfDocument(bytes).toStdString();
    std::vector<NamedMaterial> materials;
    for (const MtlMaterial& source : ParseMtl(text, path)) {
        const std::string name =
            ReadableName(source.name, "Material " + std::to_string(materials.size() + 1));
        MaterialNotes notes(report, name);
        CorvexDB::udtMaterial material;
        TakeMtlAmounts(source, notes, material);
        TakeMtlImages(source, folder, notes, material);
        NoteTheRest(source, IsTransparent(material), notes);
        materials.push_back({name, material});
    }
    return materials;
}

}  // namespace studio

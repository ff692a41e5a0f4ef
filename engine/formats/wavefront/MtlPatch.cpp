#include "MtlPatch.h"

#include "Amounts.h"
#include "MtlMaterials.h"
#include "MtlTerms.h"
#include "PlainNumbers.h"

#include <algorithm>

namespace studio {
namespace {

using CorvexDB::udtMaterial;

bool IsColourOrAmount(Attribute attribute)
{
    const auto group = RowOf(attribute).group;
    return group == CorvexMaterial::AttributeGroup::Surface ||
           group == CorvexMaterial::AttributeGroup::Raytrace;
}

struct ImageTerms {
    Attribute attribute;
    std::array<const char*, 3> keywords;
};
constexpr std::array kImageTerms{
    ImageTerms{Attribute::Texture, {"map_kd"}},
    ImageTerms{Attribute::TextureOverlay, {"decal"}},
    ImageTerms{Attribute::TextureAlpha, {"map_d"}},
    ImageTerms{Attribute::TextureBumpmap, {"bump"}},
    ImageTerms{Attribute::TextureSpecularMap, {"map_ks"}},
    ImageTerms{Attribute::TextureEnvironmentMap, {"refl"}},
    ImageTerms{Attribute::TextureAlphaChannelUse, {"map_d", "map_ks", "bump"}},
};

std::string LowerKeyword(std::string text)
{
    return QString::fromStdString(text).toLower().toStdString();
}

std::string_view LineEndOf(std::string_view line)
{
    const std::size_t last = line.find_last_not_of("\r\n");
    return line.substr(last == std::string_view::npos ? 0 : last + 1);
}

std::string_view IndentOf(std::string_view line)
{
    return line.substr(0, std::min(line.find_first_not_of(" \t"), line.size()));
}

}  // namespace

MtlPatch::MtlPatch(std::string text, const std::string& folder, AlphaChannels& alpha)
    : m_text(std::move(text)), m_folder(folder), m_alpha(alpha)
{
}

MtlMaterial MtlPatch::Parsed() const
{
    return ParseMtl(m_text, {}).front();
}

udtMaterial MtlPatch::Read() const
{
    Report unsaid;
    MaterialNotes notes(unsaid, "");
    udtMaterial material;
    const MtlMaterial source = Parsed();
    TakeMtlAmounts(source, notes, material);
    TakeMtlImages(source, m_folder, notes, material);
    return material;
}

void MtlPatch::Apply(const NamedMaterial& was, const NamedMaterial& now, Report& report)
{
    ExportNotes notes(now, MtlTable(), Wearers::Samples);
    const udtMaterial before = Read();
    m_written = MtlLinesOf(now, m_folder, m_alpha, notes);
    WriteImages(was, now);
    // Twice, since ambient and emissive are shares of the colour.
    WriteAmounts(now.material);
    WriteAmounts(now.material);
    notes.SayMisread({was.material, before, now.material, Read()});
    notes.AddChangesTo(report, was.material);
}

/// The later of an attribute's statements are written only where it does not read as wanted with
/// those before.
void MtlPatch::WriteAmounts(const udtMaterial& want)
{
    for (const FormatRow& row : MtlTable()) {
        if (!IsColourOrAmount(row.attribute)) {
            continue;
        }
        for (const QString& term : QString(row.term).toLower().split(", ", Qt::SkipEmptyParts)) {
            if (!DifferIn(row.attribute, Read(), want)) {
                break;
            }
            Put(term.toStdString());
        }
    }
}

void MtlPatch::WriteImages(const NamedMaterial& was, const NamedMaterial& now)
{
    const auto& before = was.material.Textures.primary;
    for (const ImageTerms& terms : kImageTerms) {
        if (!DifferIn(terms.attribute, was.material, now.material)) {
            continue;
        }
        // Other uses of the surface's image follow it.
        for (const char* keyword : {"map_ka", "map_ke", "map_d", "map_ks", "bump"}) {
            const MtlMaterial source = Parsed();
            const MtlMap* map = source.Map(keyword);
            if (terms.attribute == Attribute::Texture && map != nullptr &&
                FindReferenced(map->file, m_folder).path == before) {
                Put(keyword);
            }
        }
        for (const char* keyword : terms.keywords) {
            if (keyword != nullptr) {
                Put(keyword);
            }
        }
    }
    if (WindowOf(was.material) != WindowOf(now.material)) {
        for (const char* keyword :
             {"map_kd", "map_ka", "map_ke", "decal", "map_d", "map_ks", "bump"}) {
            if (Parsed().Map(keyword) != nullptr) {
                Put(keyword);
            }
        }
    }
}

void MtlPatch::Put(const std::string& keyword)
{
    const auto written = [&](std::string_view wanted) {
        return std::ranges::find_if(
            m_written, [&](const MtlLine& line) { return LowerKeyword(line.keyword) == wanted; });
    };
    const auto line = written(keyword);
    if (keyword == "d" && Parsed().Has("tr") && !Parsed().Has("d")) {
        return;
    }
    if (keyword == "tr") {
        const float clear = 1.0F - std::stof(written("d")->value);
        Put(keyword, {"Tr", {}, PlainNumber(FractionOf(PercentOf(clear)))});
    } else if (line != m_written.end()) {
        Put(keyword, *line);
    } else if (keyword == "pm" || keyword == "pc") {
        Put(keyword, {keyword == "pm" ? "Pm" : "Pc", {}, "0"});
    } else {
        Remove(keyword);
    }
}

// Of several statements the last one counts.
void MtlPatch::Put(const std::string& keyword, const MtlLine& line)
{
    const MtlMaterial source = Parsed();
    const auto found = std::find_if(source.statements.rbegin(), source.statements.rend(),
                                    [&](const auto& at) { return at.keyword == keyword; });
    if (found == source.statements.rend()) {
        Insert(line);
        return;
    }
    const std::string_view old(m_text.data() + found->begin, found->end - found->begin);
    const std::string_view indent = IndentOf(old);
    const std::size_t wordEnd = std::min(old.find_first_of(" \t\r\n", indent.size()), old.size());
    const std::size_t valueBegin =
        std::min(old.find_first_not_of(" \t", wordEnd), old.size() - LineEndOf(old).size());
    const MtlMap* map = source.Map(keyword);
    const std::string changed = std::string(old.substr(0, std::max(valueBegin, wordEnd))) +
                                (valueBegin > wordEnd ? "" : " ") +
                                (map != nullptr ? map->foreign : "") + line.options + line.value +
                                std::string(LineEndOf(old));
    m_text.replace(found->begin, old.size(), changed);
}

void MtlPatch::Remove(const std::string& keyword)
{
    const MtlMaterial source = Parsed();
    for (auto at = source.statements.rbegin(); at != source.statements.rend(); ++at) {
        if (at->keyword == keyword) {
            m_text.erase(at->begin, at->end - at->begin);
        }
    }
}

/// Behind the last statement, like it.
void MtlPatch::Insert(const MtlLine& line)
{
    const MtlStatement last = Parsed().statements.back();
    const std::string_view before(m_text.data() + last.begin, last.end - last.begin);
    const std::string_view head(m_text.data(), Parsed().statements.front().end);
    const std::string ownEnd(LineEndOf(before));
    const std::string lineEnd = LineEndOf(head).empty() ? "\n" : std::string(LineEndOf(head));
    const std::string added = (ownEnd.empty() ? lineEnd : "") + std::string(IndentOf(before)) +
                              line.keyword + " " + line.options + line.value + ownEnd;
    m_text.insert(last.end, added);
}

}  // namespace studio

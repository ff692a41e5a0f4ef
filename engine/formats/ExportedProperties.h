#pragma once

#include "MaterialText.h"
#include "Report.h"
#include <CorvexMaterial/Schema.h>

#include <algorithm>
#include <array>
#include <optional>

namespace studio {

using CorvexMaterial::Attribute;

/// What a report on an export lists of a material; where several attributes are one thing to a
/// format, the one that stands for them.
inline constexpr std::array kReported{Attribute::Color,
                                      Attribute::Ambient,
                                      Attribute::Emissive,
                                      Attribute::Specular,
                                      Attribute::Transparency,
                                      Attribute::DoubleSided,
                                      Attribute::AlphaTest,
                                      Attribute::Texture,
                                      Attribute::TextureAlphaChannelUse,
                                      Attribute::TextureOverlay,
                                      Attribute::TextureAlpha,
                                      Attribute::TextureBumpmap,
                                      Attribute::TextureSpecularMap,
                                      Attribute::TextureEnvironmentMap,
                                      Attribute::OriginU,
                                      Attribute::WrapType,
                                      Attribute::RayTraceRoughness,
                                      Attribute::RayTraceMetallic,
                                      Attribute::RayTraceReflection,
                                      Attribute::RayTraceBrilliance,
                                      Attribute::RayTraceIridescenceFactor,
                                      Attribute::RayTraceNormalPattern,
                                      Attribute::RaytraceColorPattern,
                                      Attribute::RaytracePredefinedMaterial,
                                      Attribute::Plugin,
                                      Attribute::CustomFields};

/// How a format takes an attribute, unless the writer knows better for a certain material.
struct FormatRow {
    Attribute attribute;
    Outcome outcome;
    const char* term;  ///< what the format calls it, empty where it has nothing
    const char* note;  ///< marked with QT_TRANSLATE_NOOP("Interchange", ...)
};
/// One row per reported attribute, in their order.
using FormatTable = std::array<FormatRow, kReported.size()>;

[[nodiscard]] constexpr bool FollowsReported(const FormatTable& table)
{
    return std::ranges::equal(table, kReported, {}, &FormatRow::attribute);
}

/// What wears the materials of a file: samples that only show them, or shapes with coordinates of
/// their own, which say where images lie.
enum class Wearers { Samples, Shapes };

/// Whether an image lies somewhere on the surface.
[[nodiscard]] bool HasPlacedImages(const CorvexDB::udtMaterial& material);

/// Whether the materials differ in a reported attribute or in what it stands for.
[[nodiscard]] bool DifferIn(Attribute attribute, const CorvexDB::udtMaterial& one,
                            const CorvexDB::udtMaterial& other);

/// Collects what becomes of one material and reports every attribute that the material makes use
/// of.
class ExportNotes {
public:
    ExportNotes(const NamedMaterial& named, const FormatTable& table, Wearers wearers);

    /// In place of the table's row.
    void Say(Attribute attribute, Outcome outcome, const char* note);
    /// A change within a file that somebody else wrote: what is misread now, or was hit by it.
    struct Rewriting {
        const CorvexDB::udtMaterial& was;     ///< the material as it was taken
        const CorvexDB::udtMaterial& before;  ///< what the file said
        const CorvexDB::udtMaterial& want;    ///< what it is to say
        const CorvexDB::udtMaterial& after;   ///< what it says
    };
    void SayMisread(const Rewriting& rewriting);
    void AddTo(Report& report) const;
    /// Only what differs from the material as it was before.
    void AddChangesTo(Report& report, const CorvexDB::udtMaterial& before) const;

private:
    void AddTo(Report& report, const CorvexDB::udtMaterial* before) const;

    const NamedMaterial& m_named;
    const FormatTable& m_table;
    std::array<std::optional<FormatRow>, kReported.size()> m_said{};
};

}  // namespace studio

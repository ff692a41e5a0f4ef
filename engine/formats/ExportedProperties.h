#pragma once

#include "MaterialText.h"
#include "Report.h"
#include <CorvexMaterial/Schema.h>

#include <algorithm>
#include <array>
#include <optional>

namespace studio {

using CorvexMaterial::Attribute;

/// Attributes from the first to the last that another one in the report tells of.
struct ToldTogether {
    Attribute first;
    Attribute last;
    Attribute by;
};

inline constexpr auto kToldTogether = std::to_array<ToldTogether>({
    {Attribute::AlphaTestReference, Attribute::AlphaTestReference, Attribute::AlphaTest},
    {Attribute::AlphaIsTransparent, Attribute::AlphaIsTransparent,
     Attribute::TextureAlphaChannelUse},
    {Attribute::OverlayTranslucency, Attribute::OverlayTranslucency, Attribute::TextureOverlay},
    {Attribute::WrapOrientationU, Attribute::WrapOrientationV, Attribute::OriginU},
    {Attribute::OriginV, Attribute::ScaleV, Attribute::OriginU},
    {Attribute::FlatWrapType, Attribute::FlatWrapType, Attribute::WrapType},
    {Attribute::TilesPerUnit, Attribute::TilesPerUnit, Attribute::WrapType},
    {Attribute::RayTraceNormalSize, Attribute::RayTraceNormalScale,
     Attribute::RayTraceNormalPattern},
    {Attribute::RaytraceNormalFrequency, Attribute::RaytraceNormalTurbulence,
     Attribute::RayTraceNormalPattern},
    {Attribute::RayTraceIridescenceThickness, Attribute::RayTraceIridescenceTurbulence,
     Attribute::RayTraceIridescenceFactor},
    {Attribute::RaytraceColorPattern0Red, Attribute::RaytraceColorPatternTurbulence,
     Attribute::RaytraceColorPattern},
    {Attribute::RaytraceColorPattern0Alpha, Attribute::RaytraceColorPattern3Alpha,
     Attribute::RaytraceColorPattern},
    {Attribute::RaytracePredefinedType, Attribute::RaytracePredefinedType,
     Attribute::RaytracePredefinedMaterial},
    {Attribute::RayTraceType, Attribute::RayTraceType, Attribute::RaytracePredefinedMaterial},
    {Attribute::PluginParameters, Attribute::PluginParameters, Attribute::Plugin},
    {Attribute::TextureRotation, Attribute::ProjectionTurnZ, Attribute::WrapType},
    // The panel's own state is in no material.
    {Attribute::PreviewPrimitive, Attribute::PreviewPrimitive, Attribute::PreviewPrimitive},
    {Attribute::TextureLibrary, Attribute::ApplyRelative, Attribute::PreviewPrimitive},
});

inline constexpr std::size_t kReportedCount = [] {
    std::size_t count = CorvexMaterial::kAttributeCount;
    for (const ToldTogether& run : kToldTogether) {
        count -= static_cast<std::size_t>(run.last) - static_cast<std::size_t>(run.first) + 1;
    }
    return count;
}();

/// How a format takes an attribute, unless the writer knows better for a certain material.
struct FormatRow {
    Attribute attribute;
    Outcome outcome;
    const char* term;  ///< what the format calls it, empty where it has nothing
    const char* note;  ///< marked with QT_TRANSLATE_NOOP("Interchange", ...)
};
/// What a report lists, in its order: one row per attribute that no other one tells of.
using FormatTable = std::array<FormatRow, kReportedCount>;

/// So that a report is silent about nothing new.
[[nodiscard]] consteval bool TellsEveryAttribute(const FormatTable& table)
{
    std::array<int, CorvexMaterial::kAttributeCount> times{};
    for (const FormatRow& row : table) {
        ++times[static_cast<std::size_t>(row.attribute)];
    }
    for (const ToldTogether& run : kToldTogether) {
        for (auto i = static_cast<std::size_t>(run.first); i <= static_cast<std::size_t>(run.last);
             ++i) {
            ++times[i];
        }
    }
    return std::ranges::all_of(times, [](int count) { return count == 1; });
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
    std::array<std::optional<FormatRow>, kReportedCount> m_said{};
};

}  // namespace studio

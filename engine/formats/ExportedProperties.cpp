#include "ExportedProperties.h"

#include "Amounts.h"
#include "MaterialModel.h"
#include <CorvexMaterial/Looks.h>

#include <QCoreApplication>

namespace studio {
namespace {

using CorvexDB::udtMaterial;
using CorvexMaterial::AttributeGroup;
using CorvexMaterial::AttributeKind;
using CorvexMaterial::AttributeRow;

/// Attributes from the first to the last that another one in the report tells of.
struct ToldTogether {
    Attribute first;
    Attribute last;
    Attribute by;
};

/// So that a report is silent about nothing new.
consteval bool EveryAttributeIsTold()
{
    using enum Attribute;
    constexpr auto kNotListed = std::to_array<ToldTogether>({
        {AlphaTestReference, AlphaTestReference, AlphaTest},
        {AlphaIsTransparent, AlphaIsTransparent, TextureAlphaChannelUse},
        {OverlayTranslucency, OverlayTranslucency, TextureOverlay},
        {WrapOrientationU, WrapOrientationV, OriginU},
        {OriginV, ScaleV, OriginU},
        {FlatWrapType, FlatWrapType, WrapType},
        {TilesPerUnit, TilesPerUnit, WrapType},
        {RayTraceNormalSize, RayTraceNormalScale, RayTraceNormalPattern},
        {RaytraceNormalFrequency, RaytraceNormalTurbulence, RayTraceNormalPattern},
        {RayTraceIridescenceThickness, RayTraceIridescenceTurbulence, RayTraceIridescenceFactor},
        {RaytraceColorPattern0Red, RaytraceColorPatternTurbulence, RaytraceColorPattern},
        {RaytraceColorPattern0Alpha, RaytraceColorPattern3Alpha, RaytraceColorPattern},
        {RaytracePredefinedType, RaytracePredefinedType, RaytracePredefinedMaterial},
        {RayTraceType, RayTraceType, RaytracePredefinedMaterial},
        {PluginParameters, PluginParameters, Plugin},
        // The panel's own state is in no material.
        {PreviewPrimitive, PreviewPrimitive, PreviewPrimitive},
        {TextureLibrary, ApplyRelative, PreviewPrimitive},
    });
    std::array<int, CorvexMaterial::kAttributeCount> times{};
    for (const Attribute attribute : kReported) {
        ++times[static_cast<std::size_t>(attribute)];
    }
    for (const ToldTogether& run : kNotListed) {
        for (auto i = static_cast<std::size_t>(run.first); i <= static_cast<std::size_t>(run.last);
             ++i) {
            ++times[i];
        }
    }
    return std::ranges::all_of(times, [](int count) { return count == 1; });
}
static_assert(EveryAttributeIsTold(), "an attribute that reports do not list, or list twice");

/// Colour and amounts always where the format has them; of the rest what is not as in a fresh
/// material.
bool IsUsed(const AttributeRow& row, const udtMaterial& material, Outcome outcome)
{
    static const udtMaterial kFresh;
    switch (row.attribute) {
    case Attribute::AlphaTest:
        return !AlphaTestOf(material).comparison.empty();
    case Attribute::TextureAlphaChannelUse:
        return material.TextureAlphaChannelUse != 0 || material.AlphaIsTransparent;
    case Attribute::OriginU:
        return HasPlacedImages(material) && !WindowOf(material).IsWhole();
    case Attribute::WrapType:
        return HasPlacedImages(material);
    case Attribute::RaytracePredefinedMaterial:
        return CorvexMaterial::IsPredefined(material.RayTrace);
    default:
        const bool isAlways = row.group == AttributeGroup::Surface &&
                              row.kind != AttributeKind::Flag && outcome != Outcome::Dropped;
        return isAlways || !row.path.same(material, kFresh);
    }
}

QString NameOf(const AttributeRow& row)
{
    // The fractions of a crop are one thing.
    const bool isGroup = row.group == AttributeGroup::Placement;
    return QCoreApplication::translate("Attribute", isGroup ? LabelOf(row.group) : row.label);
}

}  // namespace

bool HasPlacedImages(const udtMaterial& material)
{
    CorvexDB::TextureFiles placed = material.Textures;
    placed.environment.clear();
    return placed != CorvexDB::TextureFiles();
}

ExportNotes::ExportNotes(const NamedMaterial& named, const FormatTable& table, Wearers wearers)
    : m_named(named), m_table(table)
{
    if (wearers == Wearers::Shapes && HasPlacedImages(named.material)) {
        Say(Attribute::WrapType, Outcome::Mapped, "");
    }
}

void ExportNotes::Say(Attribute attribute, Outcome outcome, const char* note)
{
    const auto index = std::ranges::find(kReported, attribute) - kReported.begin();
    m_said.at(static_cast<std::size_t>(index)) = FormatRow{attribute, outcome, "", note};
}

void ExportNotes::AddTo(Report& report) const
{
    MaterialNotes notes(report, m_named.name);
    for (std::size_t index = 0; index < kReported.size(); ++index) {
        const AttributeRow& attribute = RowOf(kReported[index]);
        const FormatRow& row = m_said[index] ? *m_said[index] : m_table[index];
        if (m_said[index] || IsUsed(attribute, m_named.material, row.outcome)) {
            notes.Add(NameOf(attribute).toStdString(), row.outcome, row.note);
        }
    }
}

}  // namespace studio

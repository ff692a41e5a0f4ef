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

bool HasImages(const udtMaterial& material)
{
    CorvexDB::TextureFiles placed = material.Textures;
    placed.environment.clear();
    return placed != CorvexDB::TextureFiles();
}

/// Colour and amounts always; of the rest what is not as in a fresh material.
bool IsUsed(const AttributeRow& row, const udtMaterial& material)
{
    static const udtMaterial kFresh;
    switch (row.attribute) {
    case Attribute::AlphaTest:
        return !AlphaTestOf(material).comparison.empty();
    case Attribute::TextureAlphaChannelUse:
        return material.TextureAlphaChannelUse != 0 || material.AlphaIsTransparent;
    case Attribute::OriginU:
        return HasImages(material) && !WindowOf(material).IsWhole();
    case Attribute::WrapType:
        return HasImages(material);
    case Attribute::RaytracePredefinedMaterial:
        return CorvexMaterial::IsPredefined(material.RayTrace);
    default:
        const bool isAlways =
            row.group == AttributeGroup::Surface && row.kind != AttributeKind::Flag;
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

ExportNotes::ExportNotes(const NamedMaterial& named, const FormatTable& table)
    : m_named(named), m_table(table)
{
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
        if (m_said[index] || IsUsed(attribute, m_named.material)) {
            const FormatRow& row = m_said[index] ? *m_said[index] : m_table[index];
            notes.Add(NameOf(attribute).toStdString(), row.outcome, row.note);
        }
    }
}

}  // namespace studio

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

bool IsColourOrAmount(const AttributeRow& row)
{
    return row.group == AttributeGroup::Surface && row.kind != AttributeKind::Flag;
}

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
        return (IsColourOrAmount(row) && outcome != Outcome::Dropped) ||
               !row.path.same(material, kFresh);
    }
}

QString NameOf(const AttributeRow& row)
{
    // The fractions of a crop are one thing.
    const bool isGroup = row.group == AttributeGroup::Placement;
    return QCoreApplication::translate("Attribute", isGroup ? LabelOf(row.group) : row.label);
}

/// Whether it comes back from every format that has it.
bool IsReadExactly(const AttributeRow& row)
{
    return IsColourOrAmount(row) || row.attribute == Attribute::RayTraceMetallic ||
           row.attribute == Attribute::RayTraceRoughness;
}

}  // namespace

bool HasPlacedImages(const udtMaterial& material)
{
    CorvexDB::TextureFiles placed = material.Textures;
    placed.environment.clear();
    return placed != CorvexDB::TextureFiles();
}

bool DifferIn(Attribute attribute, const udtMaterial& one, const udtMaterial& other)
{
    const auto differ = [&](Attribute which) {
        const AttributeRow& row = RowOf(which);
        return row.path.LeadsIntoRecord() && !row.path.same(one, other);
    };
    return differ(attribute) ||
           std::ranges::any_of(CorvexMaterial::AttributeRows(), [&](const AttributeRow& row) {
               return std::ranges::any_of(kToldTogether, [&](const ToldTogether& run) {
                   return run.by == attribute && run.first <= row.attribute &&
                          row.attribute <= run.last && differ(row.attribute);
               });
           });
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
    const auto index =
        std::ranges::find(m_table, attribute, &FormatRow::attribute) - m_table.begin();
    m_said.at(static_cast<std::size_t>(index)) = FormatRow{attribute, outcome, "", note};
}

void ExportNotes::SayMisread(const Rewriting& rewriting)
{
    const auto& [was, before, want, after] = rewriting;
    for (const FormatRow& row : m_table) {
        const bool isMeant = DifferIn(row.attribute, was, m_named.material);
        if (!isMeant && DifferIn(row.attribute, before, after)) {
            Say(row.attribute, Outcome::Dropped, row.note);
        }
        if (isMeant && IsReadExactly(RowOf(row.attribute)) && row.outcome != Outcome::Dropped &&
            DifferIn(row.attribute, after, want)) {
            Say(row.attribute, Outcome::Dropped,
                QT_TRANSLATE_NOOP("Interchange", "what else the file says of the material leaves "
                                                 "no place for it"));
        }
    }
}

void ExportNotes::AddTo(Report& report) const
{
    AddTo(report, nullptr);
}

void ExportNotes::AddChangesTo(Report& report, const udtMaterial& before) const
{
    AddTo(report, &before);
}

void ExportNotes::AddTo(Report& report, const udtMaterial* before) const
{
    MaterialNotes notes(report, m_named.name);
    for (std::size_t index = 0; index < m_table.size(); ++index) {
        const AttributeRow& attribute = RowOf(m_table[index].attribute);
        const FormatRow& row = m_said[index] ? *m_said[index] : m_table[index];
        const bool isTold = before == nullptr
                                ? m_said[index] || IsUsed(attribute, m_named.material, row.outcome)
                                : DifferIn(row.attribute, *before, m_named.material) ||
                                      (m_said[index] && row.outcome != Outcome::Mapped);
        if (isTold) {
            notes.Add(NameOf(attribute).toStdString(), row.outcome, row.note);
        }
    }
}

}  // namespace studio

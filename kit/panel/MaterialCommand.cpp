#include "MaterialCommand.h"

#include "Tr.h"

#include <algorithm>

namespace studio {
namespace {

/// What the record does not hold is changed one at a time.
QString NameOfChange(const FieldSet& fields, const std::vector<ShapeChange>& changes)
{
    const auto keepsCoordinates = [](const ShapeChange& change) {
        return change.before.coordinates == change.after.coordinates;
    };
    if (!fields.empty()) {
        return NameOf(fields);
    }
    if (!changes.empty() &&
        IsSame(*changes.front().before.gathered, *changes.front().after.gathered) &&
        changes.front().before.coordinates == changes.front().after.coordinates) {
        const auto isNamed = [](const AppliedMaterial& applied) {
            return applied.identity != nullptr;
        };
        const ShapeChange& first = changes.front();
        const bool keepsName = isNamed(first.before) && isNamed(first.after) &&
                               first.before.identity->name == first.after.identity->name;
        return keepsName ? Tr("material link") : Tr("material name");
    }
    return std::ranges::all_of(changes, keepsCoordinates) ? Tr("way of applying") : Tr("wrap");
}

QString TitleOf(const FieldSet& fields, const std::vector<ShapeChange>& changes)
{
    const QString where = changes.size() == 1
                              ? QString::fromStdString(changes.front().shape->Name())
                              : Tr("%1 shapes").arg(static_cast<qulonglong>(changes.size()));
    return Tr("Change %1 of %2").arg(NameOfChange(fields, changes), where);
}

}  // namespace

bool IsSame(const CorvexSG::GatheredMaterial& one, const CorvexSG::GatheredMaterial& other)
{
    return one.applyMode == other.applyMode && one.material == other.material;
}

bool ChangesNothing(const ShapeChange& change)
{
    return change.before.coordinates == change.after.coordinates &&
           change.before.identity == change.after.identity &&
           IsSame(*change.before.gathered, *change.after.gathered);
}

bool LooksDifferent(const ShapeChange& change)
{
    const CorvexSG::GatheredMaterial& before = *change.before.gathered;
    const CorvexSG::GatheredMaterial& after = *change.after.gathered;
    return change.before.coordinates != change.after.coordinates ||
           before.applyMode != after.applyMode ||
           Differ(before.material, after.material, CorvexMaterial::IsDrawn);
}

FieldSet Differences(const std::vector<ShapeChange>& changes)
{
    FieldSet fields;
    for (const ShapeChange& change : changes) {
        fields.merge(
            Differences(change.before.gathered->material, change.after.gathered->material));
    }
    return fields;
}

MaterialCommand::MaterialCommand(std::vector<ShapeChange> changes, FieldSet fields, Moment made,
                                 Shown shown)
    : m_changes(std::move(changes)), m_fields(std::move(fields)), m_made(made),
      m_shown(std::move(shown))
{
    setText(TitleOf(m_fields, m_changes));
}

void MaterialCommand::undo()
{
    for (const ShapeChange& change : m_changes) {
        change.shape->SetApplied(change.before);
    }
    m_isMade = false;
    m_shown(Shapes());
}

void MaterialCommand::redo()
{
    // Pushing a step calls this too, with the change already made.
    if (m_isMade) {
        return;
    }
    for (const ShapeChange& change : m_changes) {
        change.shape->SetApplied(change.after);
    }
    m_isMade = true;
    m_shown(Shapes());
}

bool MaterialCommand::mergeWith(const QUndoCommand* other)
{
    const auto* later = dynamic_cast<const MaterialCommand*>(other);
    if (later == nullptr || !later->Continues(*this)) {
        return false;
    }
    for (std::size_t i = 0; i < m_changes.size(); ++i) {
        m_changes[i].after = later->m_changes[i].after;
    }
    m_made = later->m_made;
    setObsolete(std::ranges::all_of(m_changes, ChangesNothing));
    return true;
}

bool MaterialCommand::Continues(const MaterialCommand& earlier) const
{
    const auto sameShape = [](const ShapeChange& one, const ShapeChange& other) {
        return one.shape == other.shape;
    };
    const std::uint32_t gesture = m_made.gesture;
    const bool follows = gesture != 0 || m_made.at - earlier.m_made.at <= kMergeWithin;
    return gesture == earlier.m_made.gesture && follows && m_fields == earlier.m_fields &&
           std::ranges::equal(m_changes, earlier.m_changes, sameShape);
}

ShapeList MaterialCommand::Shapes() const
{
    ShapeList shapes;
    for (const ShapeChange& change : m_changes) {
        shapes.push_back(change.shape);
    }
    return shapes;
}

}  // namespace studio

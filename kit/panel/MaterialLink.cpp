#include "MaterialLink.h"

#include "MaterialDifferences.h"
#include "MaterialName.h"
#include "MaterialNames.h"

#include <QScopedValueRollback>

#include <algorithm>
#include <map>

namespace studio {
namespace {

using CorvexMaterial::Material;
using CorvexMaterial::MaterialEdit;
using CorvexMaterial::Status;

constexpr bool MakesCoordinates(CorvexMaterial::Touches touches)
{
    return touches == CorvexMaterial::Touches::Coordinates;
}

/// A wrap that was chosen by itself; one that came with a whole material or a texture leaves
/// coordinates alone that it would not change.
bool WrapsAnew(const MaterialEdit& edit)
{
    const auto isTexture = [](const auto& row) {
        return CorvexMaterial::RowOf(row.attribute).group ==
               CorvexMaterial::AttributeGroup::Textures;
    };
    return !edit.isWhole && std::ranges::none_of(edit.rows, isTexture) &&
           std::ranges::any_of(edit.rows, [](const auto& row) {
               return MakesCoordinates(CorvexMaterial::RowOf(row.attribute).touches);
           });
}

std::shared_ptr<const CorvexSG::GatheredMaterial> WithRows(const CorvexSG::GatheredMaterial& before,
                                                           const MaterialEdit& edit)
{
    auto after = std::make_shared<CorvexSG::GatheredMaterial>();
    after->material = before.material;
    after->applyMode = before.applyMode;
    for (const CorvexMaterial::EditedRow& row : edit.rows) {
        if (row.attribute == CorvexMaterial::Attribute::ApplyRelative) {
            after->applyMode = CorvexDB::ApplyMode{std::get<std::int32_t>(row.value)};
        }
    }
    TakeRows(after->material, edit.rows);
    if (after->applyMode == CorvexDB::ApplyMode::FilesOnly) {
        CorvexMaterial::KeepTextureUse(after->material, before.material);
    }
    return after;
}

/// Shapes that shared a record share the new one too.
std::vector<ShapeChange> WithTouchedRows(const ShapeList& shapes, const MaterialEdit& edit)
{
    std::map<const CorvexSG::GatheredMaterial*, std::shared_ptr<const CorvexSG::GatheredMaterial>>
        edited;
    std::vector<ShapeChange> changes;
    for (const auto& shape : shapes) {
        const AppliedMaterial& before = shape->Applied();
        auto& gathered = edited[before.gathered.get()];
        if (gathered == nullptr) {
            gathered = WithRows(*before.gathered, edit);
        }
        const auto coordinates =
            WrapsAnew(edit) ? CorvexSG::CoordinateMode::FromWrap : before.coordinates;
        changes.push_back({shape, before, {gathered, coordinates, before.identity}});
    }
    return changes;
}

void PutBack(const std::vector<ShapeChange>& changes)
{
    for (const ShapeChange& change : changes) {
        change.shape->SetApplied(change.before);
    }
}

}  // namespace

MaterialLink::MaterialLink(LinkedParts parts, Clock clock, QObject* parent)
    : QObject(parent), m_parts(parts), m_clock(std::move(clock))
{
    connect(&m_parts.material, &Material::Edited, this, &MaterialLink::ApplyEdit);
    connect(&m_parts.material, &Material::Previewed, this, &MaterialLink::Preview);
    connect(&m_parts.material, &Material::PreviewEnded, &m_previewing, &MaterialPreviewing::End);
    // While a step is taken back no other can be made.
    connect(&m_parts.selection, &Selection::AboutToChange, this, [this] {
        if (!m_showsAgain) {
            m_parts.material.EndPreview();
        }
    });
    connect(&m_parts.selection, &Selection::Changed, &m_previewing, &MaterialPreviewing::End);
    connect(&m_parts.selection, &Selection::Changed, this, &MaterialLink::ShowSelected);
    connect(&m_previewing, &MaterialPreviewing::ShapesChanged, this, &MaterialLink::ShapesChanged);
}

void MaterialLink::ApplyEdit(const MaterialEdit& edit)
{
    const std::string entry = m_parts.takenEntry();
    const auto coordinates = WrapsAnew(edit) ? Coordinates::Wrapped : Coordinates::Kept;
    const ShapeList shapes = m_parts.selection.All();
    std::vector<ShapeChange> changes = edit.isWhole || shapes.size() == 1
                                           ? AppliedWhole(coordinates)
                                           : WithTouchedRows(shapes, edit);
    const bool isTaken = edit.isWhole && edit.name.empty() && !entry.empty();
    Name(changes,
         isTaken        ? entry
         : edit.isWhole ? edit.name
                        : std::string(),
         isTaken && m_linkChoice ? m_linkChoice() : nullptr);
    for (const ShapeChange& change : changes) {
        change.shape->SetApplied(change.after);
    }
    Push(std::move(changes), FieldsOf(edit), edit.gesture);
}

void MaterialLink::Preview(const MaterialEdit& edit)
{
    m_previewing.Show(WithTouchedRows(m_parts.selection.All(), edit));
}

// None where one of them refuses it.
std::vector<ShapeChange> MaterialLink::AppliedWhole(Coordinates coordinates)
{
    std::vector<ShapeChange> changes;
    for (const auto& shape : m_parts.selection.All()) {
        changes.push_back({shape, shape->Applied(), shape->Applied()});
        if (const Status status = Apply(*shape, coordinates); status != Status::Success) {
            PutBack(changes);
            Q_EMIT Failed(tr("The material was not applied"), status);
            return {};
        }
        changes.back().after = shape->Applied();
    }
    return changes;
}

Status MaterialLink::Apply(StudioShape& shape, Coordinates coordinates)
{
    const auto shown = m_parts.material.ShownMaterial();
    const bool makesNewCoordinates =
        coordinates == Coordinates::Wrapped ||
        (shown != nullptr && Differ(shape.Material(), shown->material, MakesCoordinates));
    return m_parts.material.ApplyShapeMaterial(m_parts.scene, shape, makesNewCoordinates,
                                               m_parts.scene.RootGroup(),
                                               m_parts.scene.CameraGroup(), {}, {}, false, {}, {});
}

void MaterialLink::Make(std::vector<ShapeChange> changes)
{
    for (const ShapeChange& change : changes) {
        change.shape->SetApplied(change.after);
    }
    FieldSet fields = Differences(changes);
    Push(std::move(changes), std::move(fields));
    ShowSelected();
}

void MaterialLink::Try(const std::vector<CorvexMaterial::EditedRow>& rows)
{
    const auto latest = m_parts.selection.Latest();
    const auto changes = WithTouchedRows(m_parts.selection.All(), {rows, false});
    m_previewing.Show(changes);
    for (const ShapeChange& change : changes) {
        if (change.shape == latest) {
            // Refused, it is told at the end.
            static_cast<void>(Show(*change.after.gathered));
        }
    }
}

void MaterialLink::Finish(const std::vector<CorvexMaterial::EditedRow>& rows)
{
    m_previewing.End();
    if (const Status status = m_parts.material.Edit(rows); status != Status::Success) {
        Q_EMIT Failed(tr("The material was not applied"), status);
        ShowSelected();
    }
}

void MaterialLink::GiveUp()
{
    if (m_previewing.IsOn()) {
        m_previewing.End();
        ShowSelected();
    }
}

ShapeChange MaterialLink::PutOf(const std::shared_ptr<StudioShape>& shape,
                                const CorvexDB::udtMaterial& material)
{
    const AppliedMaterial before = shape->Applied();
    const auto coordinates = Differ(before.gathered->material, material, MakesCoordinates)
                                 ? CorvexSG::CoordinateMode::FromWrap
                                 : before.coordinates;
    auto gathered = std::make_shared<CorvexSG::GatheredMaterial>();
    gathered->material = material;
    gathered->applyMode = before.gathered->applyMode;
    return {shape, before, {std::move(gathered), coordinates, before.identity}};
}

void MaterialLink::Put(const ShapeList& shapes, const CorvexDB::udtMaterial& material,
                       const std::string& name, const std::shared_ptr<const LibraryLink>& link)
{
    std::vector<ShapeChange> changes;
    std::map<CorvexDB::ApplyMode, std::shared_ptr<const CorvexSG::GatheredMaterial>> made;
    for (const auto& shape : shapes) {
        ShapeChange change = PutOf(shape, material);
        auto& gathered = made[change.after.gathered->applyMode];
        gathered = gathered == nullptr ? change.after.gathered : gathered;
        change.after.gathered = gathered;
        changes.push_back(std::move(change));
    }
    Name(changes, name, link);
    Make(std::move(changes));
}

void MaterialLink::Share(const StudioShape& wearer, const ShapeList& shapes)
{
    std::vector<ShapeChange> changes =
        SharedWith(wearer, shapes, DescriptiveName(wearer.Material()), m_parts.scene.All());
    for (ShapeChange& change : changes) {
        if (Differ(change.before.gathered->material, wearer.Material(), MakesCoordinates)) {
            change.after.coordinates = CorvexSG::CoordinateMode::FromWrap;
        }
    }
    Make(std::move(changes));
}

void MaterialLink::Name(std::vector<ShapeChange>& changes, const std::string& name,
                        const std::shared_ptr<const LibraryLink>& link) const
{
    if (name.empty()) {
        SplitShared(changes, m_parts.scene.All());
        return;
    }
    std::shared_ptr<LibraryLink> taken;
    if (link != nullptr && !changes.empty()) {
        taken = std::make_shared<LibraryLink>(*link);
        taken->name = name;
        taken->taken = changes.front().after.gathered->material;
    }
    ShareNamed(changes, name, m_parts.scene.All(), taken);
}

void MaterialLink::Push(std::vector<ShapeChange> changes, FieldSet fields, std::uint32_t gesture)
{
    if (std::ranges::all_of(changes, ChangesNothing)) {
        return;
    }
    ShowDifferencesSoon();
    const bool isSeen = std::ranges::any_of(changes, LooksDifferent);
    m_parts.history.push(
        new MaterialCommand(std::move(changes), std::move(fields), {m_clock(), gesture},
                            [this](const ShapeList& shapes) { ShowAgain(shapes); }));
    if (isSeen) {
        Q_EMIT ShapesChanged();
    }
}

void MaterialLink::ShowSelected()
{
    ShowDifferencesSoon();
    const auto latest = m_parts.selection.Latest();
    if (latest == nullptr) {
        return;
    }
    const Status status = Show(*latest->Applied().gathered);
    if (status != Status::Success) {
        Q_EMIT Failed(tr("The material of the shape cannot be shown"), status);
    }
}

// The way of applying is no part of the record, but it is the shape's too: an edit of anything else
// must leave it alone.
Status MaterialLink::Show(const CorvexSG::GatheredMaterial& gathered)
{
    static_cast<void>(m_parts.takenEntry());  // what was taken is shown no more
    CorvexDB::ApplyMode shown{};
    Status status = m_parts.material.get_ApplyRelative(shown);
    if (status == Status::Success && shown != gathered.applyMode) {
        status = m_parts.material.put_ApplyRelative(gathered.applyMode);
    }
    return status == Status::Success ? m_parts.material.CopyFieldToFormMaterial(gathered.material)
                                     : status;
}

void MaterialLink::ShowAgain(const ShapeList& shapes)
{
    // The order matters: the last one is shown in the panel. A selection that stays tells nobody.
    const QScopedValueRollback<bool> again(m_showsAgain, true);
    const bool selectionStays = m_parts.selection.All() == shapes;
    m_parts.selection.Set(shapes);
    if (selectionStays) {
        ShowSelected();
    }
    Q_EMIT ShapesChanged();
}

void MaterialLink::ShowDifferencesSoon()
{
    if (!std::exchange(m_showsSoon, true)) {
        QMetaObject::invokeMethod(this, &MaterialLink::ShowDifferences, Qt::QueuedConnection);
    }
}

void MaterialLink::ShowDifferences()
{
    m_showsSoon = false;
    const ShapeList& shapes = m_parts.selection.All();
    const Status status = m_parts.material.ShowDifferences(DifferencesOf(shapes));
    if (status != Status::Success) {
        Q_EMIT Failed(tr("The differences of the shapes cannot be shown"), status);
    }
    const auto latest = m_parts.selection.Latest();
    const auto identity = latest != nullptr ? latest->Applied().identity : nullptr;
    m_parts.material.SetMaterialName(identity != nullptr ? identity->name : std::string());
    Q_EMIT Affects(shapes.size(), MaterialsOf(shapes));
}

std::chrono::milliseconds SteadyNow()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

}  // namespace studio

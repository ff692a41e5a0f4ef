#include "studio/app/MaterialLink.h"

#include <QScopedValueRollback>

#include <algorithm>

namespace studio {
namespace {

using CorvexMaterial::Material;
using CorvexMaterial::Status;

bool MakesNewCoordinates(const CorvexDB::udtMaterial& before, const CorvexDB::udtMaterial& after)
{
    return before.Wrap != after.Wrap || before.FlatWrap != after.FlatWrap ||
           before.TilesPerUnit != after.TilesPerUnit;
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
    connect(&m_parts.material, &Material::MaterialChanged, this, &MaterialLink::ApplyEdit);
    connect(&m_parts.selection, &Selection::Changed, this, &MaterialLink::ShowSelected);
}

void MaterialLink::WithoutApplying(const std::function<void()>& change)
{
    const QScopedValueRollback guard(m_showing, true);
    change();
}

void MaterialLink::ForAll(const std::function<void()>& choice)
{
    const QScopedValueRollback guard(m_forAll, true);
    choice();
}

std::shared_ptr<const CorvexSG::GatheredMaterial> MaterialLink::Shown() const
{
    CorvexSG::Shape* preview = nullptr;
    m_parts.material.get_csMaterialShape(preview);
    const auto* shape = dynamic_cast<const StudioShape*>(preview);
    return shape != nullptr ? shape->Applied().gathered : nullptr;
}

const CorvexDB::udtMaterial* MaterialLink::ShownMaterial() const
{
    const auto shown = Shown();
    return shown != nullptr ? &shown->material : nullptr;
}

// Turning the preview or choosing another primitive ends in a `MaterialChanged` too. Applying then
// would give every selected shape the material of the last one.
bool MaterialLink::PanelMoved()
{
    const auto shown = Shown();
    const bool stays = shown != nullptr && m_lastShown != nullptr && IsSame(*shown, *m_lastShown);
    m_lastShown = shown;
    return !stays;
}

void MaterialLink::ApplyEdit()
{
    const bool moved = PanelMoved();
    if (!m_showing && (moved || m_forAll)) {
        ApplyToSelection(Coordinates::Kept);
    }
}

void MaterialLink::WrapSelection()
{
    const auto isWrapped = [](const auto& shape) {
        return shape->Applied().coordinates == CorvexSG::CoordinateMode::FromWrap;
    };
    if (!std::ranges::all_of(m_parts.selection.All(), isWrapped)) {
        ApplyToSelection(Coordinates::Wrapped);
    }
}

void MaterialLink::ApplyToSelection(Coordinates coordinates)
{
    std::vector<ShapeChange> changes;
    for (const auto& shape : m_parts.selection.All()) {
        changes.push_back({shape, shape->Applied(), shape->Applied()});
        if (const Status status = Apply(*shape, coordinates); status != Status::Success) {
            PutBack(changes);
            Q_EMIT Failed(tr("The material was not applied"), status);
            return;
        }
        changes.back().after = shape->Applied();
    }
    Push(std::move(changes));
}

Status MaterialLink::Apply(StudioShape& shape, Coordinates coordinates)
{
    const bool makesNewCoordinates =
        coordinates == Coordinates::Wrapped ||
        (m_lastShown != nullptr && MakesNewCoordinates(shape.Material(), m_lastShown->material));
    return m_parts.material.ApplyShapeMaterial(m_parts.scene, shape, makesNewCoordinates,
                                               m_parts.scene.RootGroup(),
                                               m_parts.scene.CameraGroup(), {}, {}, false, {}, {});
}

void MaterialLink::Make(std::vector<ShapeChange> changes)
{
    for (const ShapeChange& change : changes) {
        change.shape->SetApplied(change.after);
    }
    Push(std::move(changes));
    ShowSelected();
}

void MaterialLink::Put(const std::shared_ptr<StudioShape>& shape,
                       const CorvexDB::udtMaterial& material)
{
    const AppliedMaterial before = shape->Applied();
    const auto coordinates = MakesNewCoordinates(before.gathered->material, material)
                                 ? CorvexSG::CoordinateMode::FromWrap
                                 : before.coordinates;
    auto gathered = std::make_shared<CorvexSG::GatheredMaterial>();
    gathered->material = material;
    gathered->applyMode = before.gathered->applyMode;
    Make({{shape, before, {std::move(gathered), coordinates}}});
}

void MaterialLink::Push(std::vector<ShapeChange> changes)
{
    if (std::ranges::all_of(changes, ChangesNothing)) {
        return;
    }
    m_parts.history.push(new MaterialCommand(
        std::move(changes), m_clock(), [this](const ShapeList& shapes) { ShowAgain(shapes); }));
    Q_EMIT ShapesChanged();
}

void MaterialLink::ShowSelected()
{
    const auto latest = m_parts.selection.Latest();
    if (latest == nullptr) {
        return;
    }
    WithoutApplying([&] {
        const Status status = Show(*latest->Applied().gathered);
        if (status != Status::Success) {
            Q_EMIT Failed(tr("The material of the shape cannot be shown"), status);
        }
    });
}

// The way of applying is no part of the record, but it is the shape's too: an edit of anything else
// must leave it alone.
Status MaterialLink::Show(const CorvexSG::GatheredMaterial& gathered)
{
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
    const bool selectionStays = m_parts.selection.All() == shapes;
    m_parts.selection.Set(shapes);
    if (selectionStays) {
        ShowSelected();
    }
    Q_EMIT ShapesChanged();
}

std::chrono::milliseconds SteadyNow()
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(
        std::chrono::steady_clock::now().time_since_epoch());
}

}  // namespace studio

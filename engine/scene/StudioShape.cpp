#include "StudioShape.h"

#include "MeshFile.h"
#include "MeshShading.h"
#include <CorvexMaterial/Schema.h>
#include <CorvexMaterial/Status.h>

#include <filesystem>

namespace studio {

namespace {

using CorvexMaterial::Error;
using CorvexMaterial::Status;
using CorvexSG::GatheredMaterial;

void RequireWholeShape(const CorvexSG::MaterialApplication& application)
{
    if (application.selectionType.kind != CorvexSG::SelectionKind::Shape) {
        throw Error(Status::NotAvailable, "A material is applied to whole shapes only.");
    }
    if (application.gathered == nullptr) {
        throw Error(Status::InvalidArgument, "There is no material to apply.");
    }
}

// What the panel does not read in this mode must not replace what the shape has.
std::shared_ptr<const GatheredMaterial> KeepingTextureUse(const GatheredMaterial& gathered,
                                                          const CorvexDB::udtMaterial& present)
{
    auto merged = std::make_shared<GatheredMaterial>(gathered);
    CorvexMaterial::KeepTextureUse(merged->material, present);
    return merged;
}

}  // namespace

AppliedMaterial WholeMaterial(CorvexDB::udtMaterial material, CorvexSG::CoordinateMode coordinates)
{
    auto gathered = std::make_shared<GatheredMaterial>();
    gathered->material = std::move(material);
    return {std::move(gathered), coordinates, {}};
}

StudioShape::StudioShape() : StudioShape(ShapeState()) {}

StudioShape::StudioShape(std::string name, std::shared_ptr<const Mesh> mesh,
                         AppliedMaterial applied)
    : StudioShape(ShapeState{.name = std::move(name),
                             .mesh = std::move(mesh),
                             .placement = {},
                             .applied = std::move(applied)})
{
}

StudioShape::StudioShape(ShapeState state) : m_state(std::move(state))
{
    SetApplied(std::move(m_state.applied));
    ShowMesh(std::move(m_state.mesh), m_state.option);
}

void StudioShape::ApplyMaterial(const CorvexSG::MaterialApplication& application)
{
    RequireWholeShape(application);
    auto gathered = application.gathered->applyMode == CorvexDB::ApplyMode::FilesOnly
                        ? KeepingTextureUse(*application.gathered, Material())
                        : application.gathered;
    if (application.optimizePoints) {
        m_shown = WithMergedPoints(m_shown);
    }
    m_state.applied.gathered = std::move(gathered);
    m_instead.reset();
}

void StudioShape::ApplyMaterialWrapped(const CorvexSG::MaterialApplication& application)
{
    ApplyMaterial(application);
    m_state.applied.coordinates = CorvexSG::CoordinateMode::FromWrap;
}

void StudioShape::LoadMeshFile(const std::string& path)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        throw Error(Status::FileFailed, path + ": there is no such file");
    }
    ShowMesh(ReadMeshFile(path), m_state.option);
}

void StudioShape::SetShapeOption(std::int32_t option)
{
    if (option != static_cast<std::int32_t>(ShapeOption::Flat) &&
        option != static_cast<std::int32_t>(ShapeOption::Smooth)) {
        throw Error(Status::InvalidArgument, "The shape knows the options 1 and 2.");
    }
    if (static_cast<ShapeOption>(option) != m_state.option) {
        ShowMesh(m_state.mesh, static_cast<ShapeOption>(option));
    }
}

void StudioShape::ShowMesh(std::shared_ptr<const Mesh> mesh, ShapeOption option)
{
    const bool facets = option == ShapeOption::Flat && mesh != nullptr;
    m_shown = facets ? WithFlatNormals(*mesh) : mesh;
    m_state.mesh = std::move(mesh);
    m_state.option = option;
}

void StudioShape::Move(float distance, std::int32_t mode)
{
    if (mode < 0 || mode > static_cast<std::int32_t>(MoveMode::AlongZ)) {
        throw Error(Status::InvalidArgument, "A shape moves along the axes 0 to 2.");
    }
    m_state.moved[static_cast<std::size_t>(mode)] += static_cast<double>(distance);
}

void StudioShape::SetApplied(AppliedMaterial applied)
{
    if (applied.gathered == nullptr) {
        applied.gathered = WholeMaterial({}).gathered;
    }
    m_state.applied = std::move(applied);
    m_instead.reset();
}

QMatrix4x4 StudioShape::WorldFromMesh() const
{
    QMatrix4x4 worldFromMesh = m_state.placement;
    for (int axis = 0; axis < 3; ++axis) {
        const double moved = m_state.moved[static_cast<std::size_t>(axis)];
        worldFromMesh(axis, 3) =
            static_cast<float>(static_cast<double>(m_state.placement(axis, 3)) + moved);
    }
    return worldFromMesh;
}

void StudioShape::SetWorldFromMesh(const QMatrix4x4& worldFromMesh)
{
    m_state.placement = worldFromMesh;
    m_state.moved = {};
}

FrameItem StudioShape::Item() const
{
    const AppliedMaterial& drawn = m_instead ? *m_instead : m_state.applied;
    FrameItem item;
    item.mesh = m_shown;
    item.material = {drawn.gathered, &drawn.gathered->material};
    item.worldFromMesh = WorldFromMesh();
    item.coordinates = drawn.coordinates;
    item.applyMode = drawn.gathered->applyMode;
    return item;
}

}  // namespace studio

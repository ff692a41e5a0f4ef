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
    return {std::move(gathered), coordinates};
}

StudioShape::StudioShape() : m_applied(WholeMaterial({})) {}

StudioShape::StudioShape(std::string name, std::shared_ptr<const Mesh> mesh,
                         AppliedMaterial applied)
    : m_name(std::move(name)), m_loaded(std::move(mesh)), m_shown(m_loaded)
{
    SetApplied(std::move(applied));
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
    m_applied.gathered = std::move(gathered);
}

void StudioShape::ApplyMaterialWrapped(const CorvexSG::MaterialApplication& application)
{
    ApplyMaterial(application);
    m_applied.coordinates = CorvexSG::CoordinateMode::FromWrap;
}

void StudioShape::LoadMeshFile(const std::string& path)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error)) {
        throw Error(Status::FileFailed, path + ": there is no such file");
    }
    ShowMesh(ReadMeshFile(path), m_option);
}

void StudioShape::SetShapeOption(std::int32_t option)
{
    if (option != static_cast<std::int32_t>(ShapeOption::Flat) &&
        option != static_cast<std::int32_t>(ShapeOption::Smooth)) {
        throw Error(Status::InvalidArgument, "The shape knows the options 1 and 2.");
    }
    if (static_cast<ShapeOption>(option) != m_option) {
        ShowMesh(m_loaded, static_cast<ShapeOption>(option));
    }
}

void StudioShape::ShowMesh(std::shared_ptr<const Mesh> mesh, ShapeOption option)
{
    const bool facets = option == ShapeOption::Flat && mesh != nullptr;
    m_shown = facets ? WithFlatNormals(*mesh) : mesh;
    m_loaded = std::move(mesh);
    m_option = option;
}

void StudioShape::Move(float distance, std::int32_t mode)
{
    if (mode < 0 || mode > static_cast<std::int32_t>(MoveMode::AlongZ)) {
        throw Error(Status::InvalidArgument, "A shape moves along the axes 0 to 2.");
    }
    m_moved[static_cast<std::size_t>(mode)] += static_cast<double>(distance);
}

void StudioShape::SetApplied(AppliedMaterial applied)
{
    m_applied =
        applied.gathered == nullptr ? WholeMaterial({}, applied.coordinates) : std::move(applied);
}

QMatrix4x4 StudioShape::WorldFromMesh() const
{
    QMatrix4x4 worldFromMesh = m_placement;
    for (int axis = 0; axis < 3; ++axis) {
        const double moved = m_moved[static_cast<std::size_t>(axis)];
        worldFromMesh(axis, 3) =
            static_cast<float>(static_cast<double>(m_placement(axis, 3)) + moved);
    }
    return worldFromMesh;
}

void StudioShape::SetWorldFromMesh(const QMatrix4x4& worldFromMesh)
{
    m_placement = worldFromMesh;
    m_moved = {};
}

FrameItem StudioShape::Item() const
{
    FrameItem item;
    item.mesh = m_shown;
    item.material = {m_applied.gathered, &m_applied.gathered->material};
    item.worldFromMesh = WorldFromMesh();
    item.coordinates = m_applied.coordinates;
    item.applyMode = m_applied.gathered->applyMode;
    return item;
}

}  // namespace studio

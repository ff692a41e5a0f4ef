#pragma once

#include "Frame.h"
#include <CorvexMaterial/CorvexSG.h>

#include <QMatrix4x4>

#include <array>
#include <memory>
#include <string>

namespace studio {

/// A shape's material as it was applied: enough to put it back later.
struct AppliedMaterial {
    std::shared_ptr<const CorvexSG::GatheredMaterial> gathered;  ///< never null in a shape
    CorvexSG::CoordinateMode coordinates = CorvexSG::CoordinateMode::FromMesh;

    bool operator==(const AppliedMaterial&) const = default;
};

/// A material that comes from a file or a catalogue instead of the panel.
[[nodiscard]] AppliedMaterial
WholeMaterial(CorvexDB::udtMaterial material,
              CorvexSG::CoordinateMode coordinates = CorvexSG::CoordinateMode::FromMesh);

/// What `SetShapeOption` understands: how light runs over the triangles of the mesh.
enum class ShapeOption : std::int32_t {
    Flat = 1,    ///< every triangle has one tone
    Smooth = 2,  ///< by the normals of the mesh
};

/// What `Move` understands: the axis of the world along which the shape moves.
enum class MoveMode : std::int32_t { AlongX = 0, AlongY = 1, AlongZ = 2 };

class StudioShape : public CorvexSG::Shape {
public:
    /// Empty, with the default material.
    StudioShape();
    StudioShape(std::string name, std::shared_ptr<const Mesh> mesh, AppliedMaterial applied);

    /// Takes the material over, and leaves the way coordinates are made as it was. The mesh costs
    /// something only where its points are to be merged, and the material is shared, not copied,
    /// unless it is applied `FilesOnly`. Then the shape keeps its use of texture alpha and its
    /// overlay translucency. Errors: NotAvailable for parts of a shape; the shape stays as it was.
    void ApplyMaterial(const CorvexSG::MaterialApplication& application) override;
    /// The same, and from now on the wrap makes the coordinates.
    void ApplyMaterialWrapped(const CorvexSG::MaterialApplication& application) override;
    void LoadMeshFile(const std::string& path) override;
    /// A `ShapeOption`; holds for meshes loaded later too. Errors: InvalidArgument.
    void SetShapeOption(std::int32_t option) override;
    /// Distance in world units, mode a `MoveMode`. Moving back by the same distance restores the
    /// position exactly. Errors: InvalidArgument.
    void Move(float distance, std::int32_t mode) override;

    [[nodiscard]] const std::string& Name() const { return m_name; }
    /// As drawn; null for an empty shape.
    [[nodiscard]] const std::shared_ptr<const Mesh>& SharedMesh() const { return m_shown; }
    [[nodiscard]] const CorvexDB::udtMaterial& Material() const
    {
        return m_applied.gathered->material;
    }
    [[nodiscard]] const AppliedMaterial& Applied() const { return m_applied; }
    /// A null material becomes the default one.
    void SetApplied(AppliedMaterial applied);
    [[nodiscard]] QMatrix4x4 WorldFromMesh() const;
    void SetWorldFromMesh(const QMatrix4x4& worldFromMesh);
    [[nodiscard]] FrameItem Item() const;

private:
    void ShowMesh(std::shared_ptr<const Mesh> mesh, ShapeOption option);

    std::string m_name;
    std::shared_ptr<const Mesh> m_loaded;
    std::shared_ptr<const Mesh> m_shown;
    ShapeOption m_option = ShapeOption::Smooth;
    AppliedMaterial m_applied;
    QMatrix4x4 m_placement;
    std::array<double, 3> m_moved{};  ///< double, so that small steps leave no rounding behind
};

}  // namespace studio

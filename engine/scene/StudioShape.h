#pragma once

#include "Frame.h"
#include "LibraryLink.h"
#include <CorvexMaterial/CorvexSG.h>

#include <QMatrix4x4>

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <utility>

namespace studio {

/// What makes a material one that shapes share: those that point to the same have it in common. To
/// rename it is to give all of them another one.
struct SceneMaterial {
    std::string name;
    /// Attributes that a later program stored, as a JSON object; empty for none.
    std::string unknown;
    std::shared_ptr<const LibraryLink> link{};  ///< null for one of its own
};

/// A shape's material as it was applied: enough to put it back later.
struct AppliedMaterial {
    std::shared_ptr<const CorvexSG::GatheredMaterial> gathered;  ///< never null in a shape
    CorvexSG::CoordinateMode coordinates = CorvexSG::CoordinateMode::FromMesh;
    std::shared_ptr<const SceneMaterial> identity{};  ///< null where nobody named or shared it

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

/// What the user keeps a shape out of.
struct ShapeFlags {
    bool hidden = false;  ///< it is neither drawn nor rendered, picked or framed
    bool locked = false;  ///< it cannot be picked in the view

    bool operator==(const ShapeFlags&) const = default;
};

/// All that a shape is.
struct ShapeState {
    std::string name;
    std::shared_ptr<const Mesh> mesh;  ///< as it was loaded; null for an empty shape
    ShapeOption option = ShapeOption::Smooth;
    QMatrix4x4 placement;
    std::array<double, 3> moved{};  ///< double, so that small steps leave no rounding behind
    AppliedMaterial applied;
    ShapeFlags flags{};

    bool operator==(const ShapeState&) const = default;
};

class StudioShape : public CorvexSG::Shape {
public:
    /// Empty, with the default material.
    StudioShape();
    StudioShape(std::string name, std::shared_ptr<const Mesh> mesh, AppliedMaterial applied);
    /// As `State()` gave it. A null material becomes the default one.
    explicit StudioShape(ShapeState state);

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

    [[nodiscard]] const ShapeState& State() const { return m_state; }
    [[nodiscard]] const std::string& Name() const { return m_state.name; }
    /// As drawn; null for an empty shape.
    [[nodiscard]] const std::shared_ptr<const Mesh>& SharedMesh() const { return m_shown; }
    [[nodiscard]] const CorvexDB::udtMaterial& Material() const
    {
        return m_state.applied.gathered->material;
    }
    [[nodiscard]] const AppliedMaterial& Applied() const { return m_state.applied; }
    /// A null material becomes the default one.
    void SetApplied(AppliedMaterial applied);
    [[nodiscard]] const ShapeFlags& Flags() const { return m_state.flags; }
    void SetFlags(const ShapeFlags& flags) { m_state.flags = flags; }
    [[nodiscard]] bool IsPickable() const { return m_state.flags == ShapeFlags(); }
    /// What is drawn in the place of the applied material, as long as no other is applied; nothing
    /// to draw that one again. It is no part of what the shape is.
    void ShowInstead(std::optional<AppliedMaterial> shown) { m_instead = std::move(shown); }
    [[nodiscard]] bool ShowsAnother() const { return m_instead.has_value(); }
    [[nodiscard]] QMatrix4x4 WorldFromMesh() const;
    void SetWorldFromMesh(const QMatrix4x4& worldFromMesh);
    [[nodiscard]] FrameItem Item() const;

private:
    void ShowMesh(std::shared_ptr<const Mesh> mesh, ShapeOption option);

    ShapeState m_state;
    std::shared_ptr<const Mesh> m_shown;
    std::optional<AppliedMaterial> m_instead;  ///< its material is never null
};

}  // namespace studio

#pragma once

#include <CorvexMaterial/CorvexSG.h>

#include <array>
#include <cstdint>
#include <memory>
#include <string>

namespace CorvexMaterial {

struct PreviewPrimitive;

/// A shape with a primitive's mesh, read from the folder `System` beside the control's library.
/// Errors: what the scene graph and the mesh's loading give.
[[nodiscard]] std::shared_ptr<CorvexSG::Shape>
LoadPreviewPrimitive(CorvexSG::SceneGraph& graph, const std::string& libraryFolder,
                     const PreviewPrimitive& primitive);

/// The five preview meshes and a sixth, empty shape for any other code. Loaded once and reused.
class PreviewShapes {
public:
    /// A mesh that cannot be read ends the loading with its error; the earlier shapes stay.
    void LoadPreviewPrimitives(CorvexSG::SceneGraph& graph, const std::string& libraryFolder);

    [[nodiscard]] bool WereRequested() const { return m_requested; }

    /// Null where loading has not come so far.
    [[nodiscard]] const std::shared_ptr<CorvexSG::Shape>&
    GetPreviewPrimitiveShape(std::int32_t code) const;

private:
    std::array<std::shared_ptr<CorvexSG::Shape>, 6> m_shapes;
    bool m_requested = false;
};

}  // namespace CorvexMaterial

#pragma once

#include "MaterialText.h"
#include "ViewTool.h"

#include <QObject>
#include <QPoint>

#include <functional>
#include <memory>
#include <optional>

class QMimeData;

namespace studio {

class ViewportWidget;

/// What travels when a material is dragged: its text, the folder its paths count from, its name.
inline constexpr const char* kMaterialFormat = "application/x-corvex-material";
inline constexpr const char* kFolderFormat = "application/x-corvex-material-folder";
inline constexpr const char* kNameFormat = "application/x-corvex-material-name";

/// Of a material that is in no library.
[[nodiscard]] std::unique_ptr<QMimeData> DraggedMaterialData(const NamedMaterial& named);

/// Lets the material under the pointer be dragged out of a view with Ctrl and Shift held, into a
/// library or onto a shape. Lives as long as the view.
class MaterialDragging : public QObject, public ViewTool {
    Q_OBJECT

public:
    /// The material at a place of the view; nothing where there is none.
    using Pick = std::function<std::optional<NamedMaterial>(QPoint position)>;

    MaterialDragging(ViewportWidget& view, Pick pick);

    bool MousePress(const QMouseEvent& event) override;
    bool MouseMove(const QMouseEvent& event) override;
    void MouseRelease(const QMouseEvent& event) override;
    void MouseCancel() override { m_held.reset(); }

private:
    void Drag(const NamedMaterial& named);

    ViewportWidget& m_view;
    Pick m_pick;
    std::optional<NamedMaterial> m_held;
    QPoint m_pressed;
};

}  // namespace studio

#pragma once

#include "ShapeChange.h"
#include "ViewTool.h"

#include <QObject>

#include <functional>

namespace studio {

class MaterialLink;
class Selection;
class ViewportWidget;

/// Carries materials from shape to shape with the pointer. Picking gives the selected shapes the
/// material of the one that is clicked. Painting gives what is clicked or dragged over the material
/// that the brush has; a stroke is one undo step and is seen as it is drawn. Esc ends both.
class MaterialBrush : public QObject, public ViewTool {
    Q_OBJECT

public:
    enum class Mode { Off, Pick, Paint };

    /// Null where there is no shape.
    using ShapeAt = std::function<std::shared_ptr<StudioShape>(QPoint)>;

    /// All of them outlive the brush.
    MaterialBrush(ViewportWidget& view, MaterialLink& link, Selection& selection, ShapeAt shapeAt);
    ~MaterialBrush() override;

    void Pick();
    void Brush(const AppliedMaterial& material);
    void Stop();

    bool MousePress(const QMouseEvent& event) override;
    bool MouseMove(const QMouseEvent& event) override;
    void MouseRelease(const QMouseEvent& event) override;
    void MouseCancel() override;
    bool KeyPress(const QKeyEvent& event) override;

Q_SIGNALS:
    void ModeChanged(studio::MaterialBrush::Mode mode);
    /// Picked while nothing was selected.
    void Picked(const std::shared_ptr<studio::StudioShape>& shape);

private:
    void Start(Mode mode);
    void PaintAt(QPoint position);
    void Dress(const ShapeList& shapes, const AppliedMaterial& material);
    void ShowCursor();

    ViewportWidget& m_view;
    MaterialLink& m_link;
    Selection& m_selection;
    ShapeAt m_shapeAt;
    Mode m_mode = Mode::Off;
    AppliedMaterial m_material;  ///< on the brush
    ShapeList m_stroke;
};

}  // namespace studio

#include "MaterialBrush.h"

#include "MaterialLink.h"
#include "Selection.h"
#include "ViewportWidget.h"

#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>

#include <algorithm>

namespace studio {

namespace {

constexpr int kCursorSide = 32;
constexpr int kCursorMiddle = kCursorSide / 2;

/// A ring in the colour of the material, seen on light and dark ground.
QCursor BrushCursor(CorvexMaterial::Colour colour)
{
    const CorvexMaterial::ColourBytes bytes = CorvexMaterial::BytesOf(colour);
    QPixmap picture(kCursorSide, kCursorSide);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle(kCursorMiddle, kCursorMiddle);
    painter.setPen(QPen(Qt::black, 1.0));
    painter.setBrush(QColor(bytes.red, bytes.green, bytes.blue));
    painter.drawEllipse(middle, 9.0, 9.0);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 2.0));
    painter.drawEllipse(middle, 10.5, 10.5);
    painter.setPen(QPen(Qt::black, 1.0));
    painter.drawEllipse(middle, 12.0, 12.0);
    return QCursor(picture, kCursorMiddle, kCursorMiddle);
}

}  // namespace

MaterialBrush::MaterialBrush(ViewportWidget& view, MaterialLink& link, Selection& selection,
                             ShapeAt shapeAt)
    : m_view(view), m_link(link), m_selection(selection), m_shapeAt(std::move(shapeAt))
{
}

MaterialBrush::~MaterialBrush()
{
    if (m_mode != Mode::Off) {
        m_view.RemoveTool(*this);
    }
}

void MaterialBrush::Pick()
{
    Start(Mode::Pick);
}

void MaterialBrush::Brush(const AppliedMaterial& material)
{
    m_material = material;
    Start(Mode::Paint);
}

void MaterialBrush::Start(Mode mode)
{
    if (m_mode == Mode::Off) {
        m_view.AddTool(*this);
    }
    m_mode = mode;
    m_view.setFocus();  // for Esc
    ShowCursor();
    Q_EMIT ModeChanged(mode);
}

void MaterialBrush::Stop()
{
    if (std::exchange(m_mode, Mode::Off) != Mode::Off) {
        m_view.RemoveTool(*this);
        m_view.unsetCursor();
        Q_EMIT ModeChanged(Mode::Off);
    }
}

// The view takes its own cursor back after a drag.
void MaterialBrush::ShowCursor()
{
    m_view.setCursor(m_mode == Mode::Pick ? QCursor(Qt::CrossCursor)
                                          : BrushCursor(m_material.gathered->material.Color));
}

bool MaterialBrush::MousePress(const QMouseEvent& event)
{
    if (m_mode == Mode::Paint) {
        PaintAt(event.pos());
    }
    return true;
}

bool MaterialBrush::MouseMove(const QMouseEvent& event)
{
    if (event.buttons().testFlag(Qt::LeftButton) && m_mode == Mode::Paint) {
        PaintAt(event.pos());
    } else if (m_view.cursor().shape() == Qt::ArrowCursor) {
        ShowCursor();
    }
    return true;
}

void MaterialBrush::PaintAt(QPoint position)
{
    const auto shape = m_shapeAt(position);
    if (shape != nullptr && std::ranges::find(m_stroke, shape) == m_stroke.end()) {
        m_stroke.push_back(shape);
        std::vector<ShapeChange> changes;
        for (const auto& painted : m_stroke) {
            changes.push_back(MaterialLink::PutOf(painted, m_material.gathered->material));
        }
        m_link.Previewing().Show(changes);
    }
}

// A material with a name is shared.
void MaterialBrush::Dress(const ShapeList& shapes, const AppliedMaterial& material)
{
    m_link.Put(shapes, material.gathered->material,
               material.identity != nullptr ? material.identity->name : std::string());
}

void MaterialBrush::MouseRelease(const QMouseEvent& event)
{
    if (m_mode == Mode::Paint) {
        m_link.Previewing().End();
        Dress(std::exchange(m_stroke, {}), m_material);
        ShowCursor();
        return;
    }
    const auto shape = m_shapeAt(event.pos());
    if (shape == nullptr) {
        ShowCursor();
        return;
    }
    Stop();
    if (m_selection.All().empty()) {
        Q_EMIT Picked(shape);
    } else {
        Dress(m_selection.All(), shape->Applied());
    }
}

void MaterialBrush::MouseCancel()
{
    m_stroke.clear();
    m_link.Previewing().End();
    Stop();
}

bool MaterialBrush::KeyPress(const QKeyEvent& event)
{
    if (event.key() != Qt::Key_Escape) {
        return false;
    }
    Stop();
    return true;
}

}  // namespace studio

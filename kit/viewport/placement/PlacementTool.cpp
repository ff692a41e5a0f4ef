#include "PlacementTool.h"

#include "HandlePainting.h"
#include "ViewportWidget.h"
#include <CorvexMaterial/Schema.h>

#include <QMouseEvent>

namespace studio {
namespace {

using Kind = ProjectionHandle::Kind;

PlacementTool::Rows ChangedRows(const CorvexDB::udtMaterial& before,
                                const CorvexDB::udtMaterial& now)
{
    PlacementTool::Rows rows;
    for (const CorvexMaterial::AttributeRow& row : CorvexMaterial::AttributeRows()) {
        if (row.path.LeadsIntoRecord() && !row.path.same(before, now)) {
            rows.push_back({row.attribute, 0, ValueOf(row.attribute, 0, now)});
        }
    }
    return rows;
}

Qt::CursorShape CursorOf(Kind kind)
{
    switch (kind) {
    case Kind::Arrow:
        return Qt::SizeAllCursor;
    case Kind::Ring:
    case Kind::Rotation:
        return Qt::OpenHandCursor;
    case Kind::Width:
        return Qt::SizeHorCursor;
    case Kind::Height:
        return Qt::SizeVerCursor;
    default:
        return Qt::SizeFDiagCursor;
    }
}

}  // namespace

PlacementTool::PlacementTool(ViewportWidget& view, Work work)
    : m_view(view), m_work(std::move(work))
{
}

PlacementTool::~PlacementTool()
{
    Show(false);
}

void PlacementTool::Show(bool shown)
{
    if (shown == std::exchange(m_isShown, shown)) {
        return;
    }
    if (shown) {
        m_view.AddTool(*this);
    } else {
        Hover(std::nullopt);
        m_view.RemoveTool(*this);
    }
}

ViewOfScene PlacementTool::View() const
{
    return {m_view.Camera(), QSizeF(m_view.size())};
}

std::optional<FrameItem> PlacementTool::Shape() const
{
    auto shape = m_work.shape();
    if (shape && m_drag) {
        shape->material = std::make_shared<CorvexDB::udtMaterial>(m_now);
    }
    return shape;
}

void PlacementTool::Hover(std::optional<ProjectionHandle> handle)
{
    if (handle == std::exchange(m_hovered, handle)) {
        return;
    }
    if (handle) {
        m_view.setCursor(CursorOf(handle->kind));
    } else {
        m_view.unsetCursor();
    }
    m_view.update();
}

bool PlacementTool::MousePress(const QMouseEvent& event)
{
    const auto shape = Shape();
    if (!shape) {
        return false;
    }
    const auto handle = ProjectionHandles(*shape, View()).At(event.position(), View());
    if (!handle) {
        return false;
    }
    m_before = m_now = shape->material ? *shape->material : CorvexDB::udtMaterial();
    m_pointer = event.position();
    Hover(handle);
    m_drag.emplace(*shape, *handle, View(), event.position());
    m_view.update();
    return true;
}

bool PlacementTool::MouseMove(const QMouseEvent& event)
{
    m_pointer = event.position();
    if (!m_drag) {
        const auto shape = Shape();
        Hover(shape ? ProjectionHandles(*shape, View()).At(event.position(), View())
                    : std::nullopt);
        return m_hovered.has_value();
    }
    const bool snaps = event.modifiers().testFlag(Qt::ShiftModifier);
    const CorvexDB::udtMaterial now = m_drag->MovedTo(
        event.position(), snaps ? ProjectionDrag::Steps::Snapped : ProjectionDrag::Steps::Fine);
    if (now != m_now) {
        m_now = now;
        m_work.tries(ChangedRows(m_before, m_now));
    }
    m_view.update();
    return true;
}

void PlacementTool::MouseRelease(const QMouseEvent& /*event*/)
{
    m_drag.reset();
    const Rows rows = ChangedRows(m_before, m_now);
    if (rows.empty()) {
        m_work.givesUp();
    } else {
        m_work.makes(rows);
    }
    m_hovered.reset();
    m_view.update();
}

void PlacementTool::MouseCancel()
{
    m_drag.reset();
    m_hovered.reset();
    m_work.givesUp();
    m_view.update();
}

void PlacementTool::MouseLeave()
{
    if (!m_drag) {
        Hover(std::nullopt);
    }
}

void PlacementTool::Paint(QPainter& painter)
{
    const auto shape = Shape();
    if (!shape) {
        return;
    }
    const auto held = m_drag ? std::optional(m_drag->Handle()) : m_hovered;
    PaintHandles(painter, ProjectionHandles(*shape, View()), View(), held);
    if (m_drag) {
        PaintValue(painter, m_pointer, ValueText());
    }
}

QString PlacementTool::ValueText() const
{
    const auto number = [](float value) { return QString::number(double{value}, 'g', 4); };
    const auto axis = static_cast<std::size_t>(m_drag->Handle().axis);
    const CorvexDB::TextureProjection& place = m_now.Projection;
    constexpr std::array kNames{"X", "Y", "Z"};
    switch (m_drag->Handle().kind) {
    case Kind::Arrow:
        return QStringLiteral("%1 %2").arg(QLatin1String(kNames.at(axis)),
                                           number(std::array{place.x, place.y, place.z}.at(axis)));
    case Kind::Ring:
        return tr("%1 %2°").arg(QLatin1String(kNames.at(axis)),
                                number(std::array{place.turnX, place.turnY, place.turnZ}.at(axis)));
    case Kind::Rotation:
        return tr("%1°").arg(number(m_now.TextureRotation));
    default:
        return m_now.TextureWidth > 0.0F
                   ? tr("%1 × %2").arg(number(m_now.TextureWidth), number(m_now.TextureHeight))
                   : QString();
    }
}

}  // namespace studio

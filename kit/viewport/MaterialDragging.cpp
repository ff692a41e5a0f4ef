#include "MaterialDragging.h"

#include "ViewportWidget.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>

#include <algorithm>

namespace studio {
namespace {

constexpr int kPictureSide = 48;

}  // namespace

std::unique_ptr<QMimeData> DraggedMaterialData(const NamedMaterial& named)
{
    auto data = std::make_unique<QMimeData>();
    const auto set = [&data](const char* format, const std::string& text) {
        data->setData(QLatin1String(format), QByteArray::fromStdString(text));
    };
    // Files have their full paths.
    constexpr const char* kNowhere = "/";
    set(kMaterialFormat, JsonOfMaterial(named.material, kNowhere));
    set(kFolderFormat, kNowhere);
    set(kNameFormat, named.name);
    return data;
}

MaterialDragging::MaterialDragging(ViewportWidget& view, Pick pick)
    : QObject(&view), m_view(view), m_pick(std::move(pick))
{
    view.AddTool(*this);
}

bool MaterialDragging::MousePress(const QMouseEvent& event)
{
    m_held.reset();
    if (event.modifiers() == (Qt::ControlModifier | Qt::ShiftModifier)) {
        m_pressed = event.position().toPoint();
        m_held = m_pick(m_pressed);
    }
    return m_held.has_value();
}

bool MaterialDragging::MouseMove(const QMouseEvent& event)
{
    const QPoint moved = event.position().toPoint() - m_pressed;
    if (m_held && moved.manhattanLength() >= QApplication::startDragDistance()) {
        Drag(*std::exchange(m_held, std::nullopt));
        return true;
    }
    return m_held.has_value();
}

void MaterialDragging::MouseRelease(const QMouseEvent& /*event*/)
{
    m_held.reset();
}

void MaterialDragging::Drag(const NamedMaterial& named)
{
    auto* drag = new QDrag(&m_view);
    drag->setMimeData(DraggedMaterialData(named).release());
    const QImage picture = m_view.Picture();
    if (!picture.isNull()) {
        // What is under the pointer, as the view shows it.
        const qreal scale = static_cast<qreal>(picture.width()) / std::max(m_view.width(), 1);
        const int side = static_cast<int>(kPictureSide * scale);
        const QPoint centre = (QPointF(m_pressed) * scale).toPoint();
        QPixmap cut = QPixmap::fromImage(
            picture.copy(QRect(centre - QPoint(side / 2, side / 2), QSize(side, side))));
        cut.setDevicePixelRatio(scale);
        drag->setPixmap(cut);
        drag->setHotSpot({kPictureSide / 2, kPictureSide / 2});
    }
    drag->exec(Qt::CopyAction);
    // The button was let go elsewhere.
    QMouseEvent release(QEvent::MouseButtonRelease, m_pressed, m_view.mapToGlobal(m_pressed),
                        Qt::LeftButton, Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&m_view, &release);
}

}  // namespace studio

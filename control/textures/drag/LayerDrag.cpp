#include "LayerDrag.h"

#include <QCoreApplication>
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QPixmap>
#include <QWidget>

namespace CorvexMaterial {

namespace {

const auto kFormat = QStringLiteral("application/x-corvex-texture-layer");
constexpr int kPictureSide = 48;
/// The picture hangs below the pointer, which shows what it is over.
constexpr QPoint kHotSpot(-12, -12);

/// Never the same for two panels, of other programs too.
QByteArray MarkOf(const QWidget& panel)
{
    return QByteArray::number(QCoreApplication::applicationPid()) + ' ' +
           QByteArray::number(static_cast<qulonglong>(reinterpret_cast<quintptr>(&panel))) + ' ';
}

}  // namespace

std::unique_ptr<QMimeData> MimeOfLayer(const QWidget& panel, TextureLayer layer)
{
    auto data = std::make_unique<QMimeData>();
    data->setData(kFormat, MarkOf(panel) + QByteArray::number(static_cast<int>(layer)));
    return data;
}

void DragLayer(QWidget& source, const QWidget& panel, TextureLayer layer, const QPixmap& picture)
{
    auto* drag = new QDrag(&source);
    drag->setMimeData(MimeOfLayer(panel, layer).release());
    if (!picture.isNull()) {
        drag->setPixmap(picture.scaled(kPictureSide, kPictureSide, Qt::KeepAspectRatio,
                                       Qt::SmoothTransformation));
        drag->setHotSpot(kHotSpot);
    }
    drag->exec(Qt::MoveAction | Qt::CopyAction, Qt::MoveAction);
}

std::optional<TextureLayer> DraggedLayer(const QDropEvent& event, const QWidget& panel)
{
    const QByteArray data = event.mimeData()->data(kFormat);
    const QByteArray mark = MarkOf(panel);
    const int layer = data.startsWith(mark) ? data.mid(mark.size()).toInt() : -1;
    return layer >= 0 && layer < static_cast<int>(kTextureLayerCount)
               ? std::optional(static_cast<TextureLayer>(layer))
               : std::nullopt;
}

Transfer AcceptLayer(QDropEvent& event)
{
    const bool copies = (event.modifiers() & (Qt::AltModifier | Qt::ControlModifier)) != 0;
    event.setDropAction(copies ? Qt::CopyAction : Qt::MoveAction);
    event.accept();
    return copies ? Transfer::Copy : Transfer::Move;
}

}  // namespace CorvexMaterial

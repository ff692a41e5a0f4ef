#pragma once

#include "LayerDrag.h"
#include "ThumbnailCache.h"
#include <CorvexMaterial/MaterialRecord.h>

#include <QAbstractButton>

#include <string>

namespace CorvexMaterial {

/// Picture of one layer's file, and the storage of its path; what the crop leaves out is dimmed.
/// Can be pressed, takes a dropped file, and is dragged to another layer of the panel.
class TextureThumbnail : public QAbstractButton {
    Q_OBJECT

public:
    TextureThumbnail(ThumbnailCache& cache, TextureLayer layer, QWidget* parent);

    [[nodiscard]] const std::string& File() const { return m_file; }
    void SetFile(const std::string& file);
    void SetCrop(const CorvexDB::TexturePlacement& crop);
    /// Looks at the file again when the thumbnail is painted next.
    void Refresh();

    [[nodiscard]] QSize sizeHint() const override;

    /// Lets the layer be dragged from the widget, within the panel of the thumbnail.
    void DragFrom(QWidget& widget);

Q_SIGNALS:
    void FileDropped(const QString& file);
    void LayerDropped(CorvexMaterial::TextureLayer from, CorvexMaterial::Transfer transfer);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    const Thumbnail& Shown();
    void PaintPicture(QPainter& painter, const QPixmap& picture) const;
    void PaintCrop(QPainter& painter, const QRectF& area) const;
    [[nodiscard]] std::optional<TextureLayer> OtherLayer(const QDropEvent& event) const;
    void ShowTip();
    void PaintNothing(QPainter& painter, ThumbnailState state) const;
    void SetDropTarget(bool target);

    ThumbnailCache& m_cache;
    TextureLayer m_layer;
    std::string m_file;
    CorvexDB::TexturePlacement m_crop;
    QPoint m_pressed;
    Thumbnail m_shown;
    bool m_stale = true;
    bool m_dropTarget = false;
};

}  // namespace CorvexMaterial

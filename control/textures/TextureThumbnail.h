#pragma once

#include "ThumbnailCache.h"

#include <QAbstractButton>

#include <string>

namespace CorvexMaterial {

/// Picture of one layer's file, and the storage of its path. Can be pressed; takes a dropped file.
class TextureThumbnail : public QAbstractButton {
    Q_OBJECT

public:
    TextureThumbnail(ThumbnailCache& cache, QWidget* parent);

    [[nodiscard]] const std::string& File() const { return m_file; }
    void SetFile(const std::string& file);
    /// Looks at the file again when the thumbnail is painted next.
    void Refresh();

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void FileDropped(const QString& file);

protected:
    void paintEvent(QPaintEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    const Thumbnail& Shown();
    void PaintPicture(QPainter& painter, const QPixmap& picture) const;
    void PaintNothing(QPainter& painter, ThumbnailState state) const;
    void SetDropTarget(bool target);

    ThumbnailCache& m_cache;
    std::string m_file;
    Thumbnail m_shown;
    bool m_stale = true;
    bool m_dropTarget = false;
};

}  // namespace CorvexMaterial

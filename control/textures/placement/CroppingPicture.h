#pragma once

#include "CropFit.h"
#include "CropGrip.h"

#include <QImage>
#include <QWidget>

namespace CorvexMaterial {

/// The image with the crop rectangle over it. Tells where a new rectangle is drawn, and what
/// becomes of the present one when it is moved or resized; it changes nothing itself.
class CroppingPicture : public QWidget {
    Q_OBJECT

public:
    explicit CroppingPicture(QWidget* parent);

    /// A null image leaves a ground on which the rectangle can be drawn all the same.
    void SetImage(const QImage& image, const CropFit& fit);
    void SetRect(const CropRect& rect);
    /// In logical pixels, borders included.
    [[nodiscard]] PictureSize Extent() const;

    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void DragStarted(PicturePoint at);
    void DragMoved(PicturePoint at);
    void DragEnded();
    void RectChanged(const CropRect& rect);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] PicturePoint FractionOf(PicturePoint at) const;
    [[nodiscard]] CropGrip GripOf(PicturePoint at) const;
    void ShowCursor(PicturePoint at, Qt::KeyboardModifiers modifiers);
    void PaintImage(QPainter& painter) const;
    void PaintRect(QPainter& painter) const;

    QImage m_image;
    CropFit m_fit;
    CropRect m_rect;
    bool m_drawing = false;
    CropGrip m_grip;
    CropRect m_gripStart;
    PicturePoint m_gripFrom;
};

}  // namespace CorvexMaterial

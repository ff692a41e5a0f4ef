#pragma once

#include <QImage>
#include <QWidget>

namespace CorvexMaterial {

/// A picture of fixed size, sharp on any screen.
class SketchPicture : public QWidget {
    Q_OBJECT

public:
    explicit SketchPicture(QWidget* parent);

    /// Side of the square picture in device pixels.
    [[nodiscard]] int PixelSide() const;
    /// Scaled to fill the square.
    void SetImage(const QImage& image);
    [[nodiscard]] const QImage& Image() const { return m_image; }
    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage m_image;
};

}  // namespace CorvexMaterial

#pragma once

#include "Backdrop.h"

#include <QImage>
#include <QString>

class QPainter;

namespace studio {

/// What a viewport shows at the moment: a picture of its scene, an image put in its place, or a
/// message why there is none.
class ViewportPicture {
public:
    void ShowDrawn(const QImage& image);
    void ShowImage(const QImage& image);
    void ShowMessage(const QString& message) { m_message = message; }
    /// Whether an image stands in place of the scene.
    [[nodiscard]] bool IsImage() const { return m_fit == Fit::Contain; }

    /// Null while there is none of the scene.
    [[nodiscard]] QImage Drawn() const { return IsImage() ? QImage() : m_image; }

    /// A drawn picture of another size keeps the scene's proportions until the right one comes.
    void Paint(QPainter& painter, const QRect& area, const BackdropColours& backdrop) const;

private:
    enum class Fit { Cover, Contain };

    [[nodiscard]] QRectF PlaceIn(const QRectF& area) const;

    QImage m_image;
    Fit m_fit = Fit::Cover;
    QString m_message;
};

}  // namespace studio

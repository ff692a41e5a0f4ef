#pragma once

#include "LibraryDrag.h"

#include <QObject>

#include <functional>
#include <memory>

class QDropEvent;

namespace studio {

class StudioShape;
class ViewportWidget;

/// Lets materials and images be dropped on the shapes of a viewport.
class ViewportDrops : public QObject {
    Q_OBJECT

public:
    using ShapePointer = std::shared_ptr<StudioShape>;
    using Pick = std::function<ShapePointer(QPoint)>;

    /// Lives as long as the viewport.
    ViewportDrops(ViewportWidget& viewport, Pick pick);

Q_SIGNALS:
    // After the drop is over, so that whoever answers may show a message.
    void MaterialDropped(const studio::ViewportDrops::ShapePointer& shape,
                         const studio::DroppedMaterial& material);
    void TextureDropped(const studio::ViewportDrops::ShapePointer& shape, const QString& file);
    /// For the status line: what a drop here would do.
    void Hint(const QString& text);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool Enter(QDropEvent& event);
    void Move(QDropEvent& event);
    void Drop(QDropEvent& event);

    ViewportWidget& m_viewport;
    Pick m_pick;
    QString m_dragged;       ///< name of what is over the viewport; empty when nothing is
    bool m_isThere = false;  ///< a texture that is no file is not taken
};

}  // namespace studio

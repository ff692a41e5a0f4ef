#pragma once

#include <CorvexMaterial/TextureLayers.h>

#include <memory>
#include <optional>

class QDropEvent;
class QMimeData;
class QPixmap;
class QWidget;

namespace CorvexMaterial {

// A texture on its way from one layer to another of the same panel. A drag moves it; with Alt or
// Ctrl at its end it copies.

/// The panel stands for itself: no other takes what it drags.
[[nodiscard]] std::unique_ptr<QMimeData> MimeOfLayer(const QWidget& panel, TextureLayer layer);
/// Returns when the drag is over.
void DragLayer(QWidget& source, const QWidget& panel, TextureLayer layer, const QPixmap& picture);

/// Nothing where the event carries no layer of the panel.
[[nodiscard]] std::optional<TextureLayer> DraggedLayer(const QDropEvent& event,
                                                       const QWidget& panel);

enum class Transfer { Move, Copy };
/// What a drop would do; the pointer shows it from now on.
Transfer AcceptLayer(QDropEvent& event);

}  // namespace CorvexMaterial

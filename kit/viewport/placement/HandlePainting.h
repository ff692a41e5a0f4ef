#pragma once

#include "ProjectionHandles.h"

class QPainter;
class QString;

namespace studio {

/// The held handle shines, or the one under the pointer.
void PaintHandles(QPainter& painter, const ProjectionHandles& handles, const ViewOfScene& view,
                  std::optional<ProjectionHandle> held);
/// A number beside the pointer.
void PaintValue(QPainter& painter, QPointF pointer, const QString& text);

}  // namespace studio

#pragma once

class QJsonArray;
class QJsonObject;

namespace studio {

/// Adds a scene of spheres side by side to a glTF document, one for each of its materials and named
/// like it; all share one mesh, which is in the document itself.
void PutSpheres(QJsonObject& document, const QJsonArray& materials);

}  // namespace studio

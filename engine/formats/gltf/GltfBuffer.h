#pragma once

#include "ImportedModel.h"

#include <QJsonArray>
#include <QJsonObject>

#include <map>

namespace studio {

/// The one buffer of a document that is written, with all that tells what is where in it.
class GltfBuffer {
public:
    /// Room for all meshes of the scene is made at once.
    explicit GltfBuffer(const ImportedModel& scene);

    /// The number of a view of these bytes.
    int Add(const QByteArray& bytes);
    /// A primitive without its material. A mesh that was added before is not added again.
    QJsonObject PrimitiveOf(const ImportedMesh& mesh);

    void AddTo(QJsonObject& document) const;
    [[nodiscard]] const QByteArray& Bytes() const { return m_bytes; }

private:
    [[nodiscard]] char* Room(qsizetype length, QJsonObject more);
    int Accessor(QJsonObject accessor);
    QJsonObject AddVertices(const Mesh& mesh, bool hasCoordinates);
    int AddIndices(const Mesh& mesh);

    QByteArray m_bytes;
    QJsonArray m_views;
    QJsonArray m_accessors;
    std::map<std::pair<std::uint64_t, bool>, QJsonObject> m_known;
};

}  // namespace studio

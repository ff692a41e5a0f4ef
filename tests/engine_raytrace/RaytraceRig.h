#pragma once

#include "ParametricMesh.h"
#include "RaytraceImages.h"
#include "RaytraceScene.h"
#include "RenderService.h"
#include "SampleFolder.h"

namespace StudioRaytraceTest {

/// POV-Ray is not what a sanitizer build looks at: it gets less to draw there.
#ifdef CORVEX_SANITIZED
constexpr bool kSanitized = true;
#else
constexpr bool kSanitized = false;
#endif

/// What POV-Ray made of a scene, and what it had to say about it.
struct Raytraced {
    QImage picture;  ///< null when there is none
    QString messages;
    int exitCode = -1;
};

/// Draws scenes twice: as the viewport does, and with the real POV-Ray.
class RaytraceRig {
public:
    /// The path of an image file of this content in the rig's folder.
    std::string Image(const char* name, const std::function<QColor(int x, int y)>& colour,
                      QSize size = {64, 64});
    [[nodiscard]] const CorvexTest::SampleFolder& Folder() const { return m_folder; }

    [[nodiscard]] QImage Draw(const studio::RaytraceScene& scene);
    [[nodiscard]] Raytraced Raytrace(const studio::RaytraceScene& scene, bool antialias = true);
    [[nodiscard]] std::string PovRayText(const studio::RaytraceScene& scene);
    [[nodiscard]] std::string RibText(const studio::RaytraceScene& scene);
    /// Of a file of this name in the rig's folder.
    [[nodiscard]] std::string SceneText(const studio::RaytraceScene& scene, const QString& name);

private:
    CorvexTest::SampleFolder m_folder;
    studio::RenderService m_rendering;
};

/// A sphere, or another mesh of its size, at the origin, filling a square picture.
[[nodiscard]] studio::RaytraceScene
SceneWith(CorvexDB::udtMaterial material,
          std::shared_ptr<const studio::Mesh> mesh = studio::SphereMesh(1.0F));

/// How far two colours are apart, the mean of their channels.
[[nodiscard]] double Distance(QRgb one, QRgb other);

/// Several pictures of one size beside each other, in rows.
[[nodiscard]] QImage Sheet(const std::vector<QImage>& pictures, int columns,
                           const QStringList& captions = {});
/// Saves into the folder that the variable CORVEX_PICTURES names, if it does.
void Keep(const QImage& picture, const char* name);

}  // namespace StudioRaytraceTest

#include "RaytraceRig.h"
#include "RunProgram.h"
#include "StudioSceneExporter.h"
#include "TextureCache.h"

#include <QPainter>

namespace StudioRaytraceTest {

using studio::RaytraceScene;

std::string RaytraceRig::Image(const char* name, const std::function<QColor(int x, int y)>& colour,
                               QSize size)
{
    QImage image(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x) {
            image.setPixelColor(x, y, colour(x, y));
        }
    }
    return m_folder.Save(QString::fromUtf8(name), image).toStdString();
}

QImage RaytraceRig::Draw(const RaytraceScene& scene)
{
    studio::Frame frame = scene.frame;
    frame.samples = 4;
    return m_rendering.DrawNow(std::move(frame));
}

std::string RaytraceRig::SceneText(const RaytraceScene& scene, const QString& name)
{
    const QString file = m_folder.PathOf(name);
    studio::WriteRaytraceScene(
        file, scene, [this](const std::string& path) { return m_rendering.Textures().Await(path); },
        studio::ImagesBeside(file));
    return CorvexTest::ContentOf(file).toStdString();
}

std::string RaytraceRig::PovRayText(const RaytraceScene& scene)
{
    return SceneText(scene, "scene.pov");
}

std::string RaytraceRig::RibText(const RaytraceScene& scene)
{
    return SceneText(scene, "scene.rib");
}

Raytraced RaytraceRig::Raytrace(const RaytraceScene& scene, bool antialias)
{
    const std::string text = PovRayText(scene);
    if (text.empty()) {
        return {};
    }
    const QString picture = m_folder.PathOf("scene.png");
    QFile::remove(picture);
    const auto outcome = CorvexTest::RunProgram(
        "povray",
        {"+Iscene.pov", "+Oscene.png", "-D", "+Q11", QString("+W%1").arg(scene.frame.width),
         QString("+H%1").arg(scene.frame.height), antialias ? "+A0.1" : "-A"},
        [this](QProcess& process) { process.setWorkingDirectory(m_folder.Path()); });
    return {QImage(picture), outcome.output + outcome.errors, outcome.exitCode};
}

RaytraceScene SceneWith(CorvexDB::udtMaterial material, std::shared_ptr<const studio::Mesh> mesh)
{
    studio::FrameItem item;
    item.mesh = std::move(mesh);
    item.material = std::make_shared<CorvexDB::udtMaterial>(std::move(material));
    RaytraceScene scene;
    scene.frame.items.push_back(std::move(item));
    scene.frame.camera.yawDegrees = 32.0F;
    scene.frame.camera.pitchDegrees = 24.0F;
    scene.frame.camera.fovDegrees = 30.0F;
    scene.frame.camera = studio::Framed(scene.frame.camera, scene.frame.items);
    scene.names = {"shape"};
    return scene;
}

double Distance(QRgb one, QRgb other)
{
    return (std::abs(qRed(one) - qRed(other)) + std::abs(qGreen(one) - qGreen(other)) +
            std::abs(qBlue(one) - qBlue(other))) /
           3.0;
}

QImage Sheet(const std::vector<QImage>& pictures, int columns, const QStringList& captions)
{
    const QSize size = pictures.front().size();
    const int rowHeight = size.height() + (captions.isEmpty() ? 0 : 16);
    const int rows = (static_cast<int>(pictures.size()) + columns - 1) / columns;
    QImage sheet(columns * size.width(), rows * rowHeight, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    for (int i = 0; i < static_cast<int>(pictures.size()); ++i) {
        const QPoint corner(i % columns * size.width(), i / columns * rowHeight);
        painter.drawImage(corner, pictures[static_cast<std::size_t>(i)]);
        if (i < captions.size()) {
            painter.drawText(QRect(corner + QPoint(0, size.height()), QSize(size.width(), 16)),
                             Qt::AlignCenter, captions[i]);
        }
    }
    return sheet;
}

void Keep(const QImage& picture, const char* name)
{
    const QString folder = qEnvironmentVariable("CORVEX_PICTURES");
    if (!folder.isEmpty()) {
        picture.save(QDir(folder).filePath(QLatin1String(name)));
    }
}

}  // namespace StudioRaytraceTest

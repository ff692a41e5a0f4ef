#include "Swatch.h"

#include <CorvexMaterial/Status.h>

#include <QFileInfo>
#include <QPainter>

using CorvexMaterial::Error;
using CorvexMaterial::Status;

namespace {

QColor Shade(const CorvexDB::udtMaterial& material, int lightPercent)
{
    const CorvexMaterial::ColourBytes bytes = CorvexMaterial::BytesOf(material.Color);
    const int percent = qBound(0, material.Emissive + lightPercent, 100);
    const int opacity = qBound(0, 100 - material.Transparency, 100);
    return QColor(bytes.red * percent / 100, bytes.green * percent / 100,
                  bytes.blue * percent / 100, opacity * 255 / 100);
}

QRadialGradient Lighting(const CorvexDB::udtMaterial& material, const QRectF& ball)
{
    QRadialGradient light(ball.center() - QPointF(ball.width(), ball.height()) / 5,
                          ball.width() * 0.7);
    const QColor highlight(255, 255, 255);
    light.setColorAt(0.0, material.Specular > 0 ? highlight : Shade(material, 100));
    light.setColorAt(qBound(0.01, material.Specular / 250.0, 0.5), Shade(material, 100));
    light.setColorAt(1.0, Shade(material, material.Ambient / 3));
    return light;
}

QRectF BallIn(const QRectF& area)
{
    const qreal side = qMin(area.width(), area.height()) * 0.8;
    QRectF ball(0, 0, side, side);
    ball.moveCenter(area.center());
    return ball;
}

}  // namespace

const CorvexDB::udtMaterial& SwatchShape::Material() const
{
    return m_gathered->material;
}

void SwatchShape::ApplyMaterial(const CorvexSG::MaterialApplication& application)
{
    m_gathered = application.gathered;
}

void SwatchShape::ApplyMaterialWrapped(const CorvexSG::MaterialApplication& application)
{
    // A ball without texture coordinates has none to make anew.
    ApplyMaterial(application);
}

void SwatchShape::LoadMeshFile(const std::string& path)
{
    // Every shape is drawn as a ball here, but a missing mesh is still worth reporting.
    const QFileInfo mesh(QString::fromStdString(path));
    if (!mesh.isFile() || !mesh.isReadable()) {
        throw Error(Status::FileFailed, "The mesh " + path + " cannot be read.");
    }
}

void SwatchShape::SetShapeOption(std::int32_t) {}

void SwatchShape::Move(float, std::int32_t) {}

void SwatchScene::ShowShape(const std::shared_ptr<CorvexSG::Shape>& shape)
{
    m_shown = std::dynamic_pointer_cast<SwatchShape>(shape);
}

CorvexSG::Group* SwatchScene::RootGroup()
{
    return nullptr;
}

CorvexSG::Group* SwatchScene::CameraGroup()
{
    return nullptr;
}

const SwatchShape* SwatchScene::Shown() const
{
    return m_shown.get();
}

std::shared_ptr<CorvexSG::Shape> SwatchSceneGraph::CreateShape()
{
    return std::make_shared<SwatchShape>();
}

SwatchViewport::SwatchViewport(QWidget* parent) : QWidget(parent)
{
    setAutoFillBackground(true);
}

QWidget& SwatchViewport::Widget()
{
    return *this;
}

CorvexSG::Scene& SwatchViewport::Scene()
{
    return m_scene;
}

void SwatchViewport::Prepare() {}

void SwatchViewport::Draw()
{
    m_picture = QImage();
    update();
}

void SwatchViewport::SetBackColor(CorvexMaterial::Colour colour)
{
    const CorvexMaterial::ColourBytes bytes = CorvexMaterial::BytesOf(colour);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, QColor(bytes.red, bytes.green, bytes.blue));
    setPalette(colours);
}

void SwatchViewport::SetListener(CorvexViewport::ViewportListener*)
{
    // A ball cannot be turned, so there is nothing to tell.
}

CorvexViewport::PixelSize SwatchViewport::Size()
{
    return {qRound(width() * devicePixelRatioF()), qRound(height() * devicePixelRatioF())};
}

void SwatchViewport::PrepareRaytracedPicture() {}

void SwatchViewport::ShowBitmap(const std::string& path)
{
    const QImage picture(QString::fromStdString(path));
    if (picture.isNull()) {
        throw Error(Status::FileFailed, "The picture " + path + " cannot be read.");
    }
    m_picture = picture;
    update();
}

void SwatchViewport::ResetDevice() {}

void SwatchViewport::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    if (!m_picture.isNull()) {
        painter.drawImage(rect(), m_picture);
    } else if (const SwatchShape* const shape = m_scene.Shown()) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        const QRectF ball = BallIn(rect());
        painter.setBrush(Lighting(shape->Material(), ball));
        painter.drawEllipse(ball);
    }
}

CorvexViewport::Viewport* SwatchViewportFactory::CreateViewport(QWidget* parent)
{
    return new SwatchViewport(parent);
}

#pragma once

#include <CorvexMaterial/CorvexSG.h>
#include <CorvexMaterial/CorvexViewport.h>

#include <QWidget>

/// A shape of this host: it keeps the material that it was given last.
class SwatchShape final : public CorvexSG::Shape {
public:
    [[nodiscard]] const CorvexDB::udtMaterial& Material() const;

    void ApplyMaterial(const CorvexSG::MaterialApplication& application) override;
    void ApplyMaterialWrapped(const CorvexSG::MaterialApplication& application) override;
    void LoadMeshFile(const std::string& path) override;
    void SetShapeOption(std::int32_t option) override;
    void Move(float distance, std::int32_t mode) override;

private:
    std::shared_ptr<const CorvexSG::GatheredMaterial> m_gathered =
        std::make_shared<CorvexSG::GatheredMaterial>();
};

class SwatchScene final : public CorvexSG::Scene {
public:
    void ShowShape(const std::shared_ptr<CorvexSG::Shape>& shape) override;
    CorvexSG::Group* RootGroup() override;
    CorvexSG::Group* CameraGroup() override;
    /// May be null.
    [[nodiscard]] const SwatchShape* Shown() const;

private:
    std::shared_ptr<SwatchShape> m_shown;
};

class SwatchSceneGraph final : public CorvexSG::SceneGraph {
public:
    std::shared_ptr<CorvexSG::Shape> CreateShape() override;
};

/// Draws whatever shape its scene shows as a lit ball, or the picture that it was told to show.
class SwatchViewport final : public QWidget, public CorvexViewport::Viewport {
public:
    explicit SwatchViewport(QWidget* parent);

    QWidget& Widget() override;
    CorvexSG::Scene& Scene() override;
    void Prepare() override;
    void Draw() override;
    void SetBackColor(CorvexMaterial::Colour colour) override;
    void SetListener(CorvexViewport::ViewportListener* listener) override;
    CorvexViewport::PixelSize Size() override;
    void PrepareRaytracedPicture() override;
    void ShowBitmap(const std::string& path) override;
    void ResetDevice() override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    SwatchScene m_scene;
    QImage m_picture;
};

class SwatchViewportFactory final : public CorvexViewport::ViewportFactory {
public:
    CorvexViewport::Viewport* CreateViewport(QWidget* parent) override;
};

#pragma once

#include <CorvexMaterial/Host.h>

#include <QPointer>
#include <QWidget>

#include <memory>

namespace Ui {
class PreviewPanel;
}

class QAbstractButton;

namespace CorvexMaterial {

/// The live preview: the host's viewport with the buttons below it.
class PreviewPanel : public QWidget, public CorvexViewport::ViewportListener {
    Q_OBJECT

public:
    PreviewPanel(CorvexViewport::ViewportFactory& viewports, QWidget* parent);
    ~PreviewPanel() override;

    CorvexViewport::Viewport& Viewport() { return *m_viewport; }
    QAbstractButton& PrimitiveButton();
    QAbstractButton& RaytraceButton();
    QAbstractButton& ExtendedButton();

    void PositionChanged(const std::string& text) override;
    void ViewChanged() override;

Q_SIGNALS:
    void PrimitivePressed();
    void RaytracePressed();
    void ExtendedPressed();
    void PositionTextChanged(const QString& text);
    void ViewTouched();

private:
    std::unique_ptr<Ui::PreviewPanel> m_ui;
    CorvexViewport::Viewport* m_viewport = nullptr;
    QPointer<QWidget> m_viewportWidget;
};

}  // namespace CorvexMaterial

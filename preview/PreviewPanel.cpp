#include "preview/PreviewPanel.h"

#include "ui_PreviewPanel.h"

namespace CorvexMaterial {

PreviewPanel::PreviewPanel(CorvexViewport::ViewportFactory& viewports, QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::PreviewPanel>())
{
    m_ui->setupUi(this);
    m_viewport = viewports.CreateViewport(m_ui->fraViewport);
    QWidget& widget = m_viewport->Widget();
    widget.setObjectName("dfvMaterialViewport");
    m_ui->fraViewport->layout()->addWidget(&widget);
    m_viewport->SetListener(this);
    connect(m_ui->cmdPreviewPrimitive, &QToolButton::clicked, this,
            &PreviewPanel::PrimitivePressed);
    connect(m_ui->cmdPreview, &QToolButton::clicked, this, &PreviewPanel::RaytracePressed);
    connect(m_ui->cmdMaterialExtended, &QToolButton::clicked, this,
            &PreviewPanel::ExtendedPressed);
}

PreviewPanel::~PreviewPanel()
{
    try {
        m_viewport->SetListener(nullptr);
    } catch (...) {
        // The viewport's widget goes right after this one, and with it whoever could call back.
        return;
    }
}

QAbstractButton& PreviewPanel::PrimitiveButton()
{
    return *m_ui->cmdPreviewPrimitive;
}

QAbstractButton& PreviewPanel::RaytraceButton()
{
    return *m_ui->cmdPreview;
}

void PreviewPanel::PositionChanged(const std::string& text)
{
    Q_EMIT PositionTextChanged(QString::fromStdString(text));
}

void PreviewPanel::ViewChanged()
{
    Q_EMIT ViewTouched();
}

}  // namespace CorvexMaterial

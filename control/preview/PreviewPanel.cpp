#include "PreviewPanel.h"

#include "ui_PreviewPanel.h"
#include <CorvexMaterial/Prompts.h>

namespace CorvexMaterial {

PreviewPanel::PreviewPanel(CorvexViewport::ViewportFactory& viewports, QWidget* parent)
    : QWidget(parent), m_ui(std::make_unique<Ui::PreviewPanel>())
{
    m_ui->setupUi(this);
    m_viewport = viewports.CreateViewport(m_ui->fraViewport);
    m_viewportWidget = &m_viewport->Widget();
    m_viewportWidget->setObjectName("dfvMaterialViewport");
    m_viewportWidget->setProperty(kUsableMeanwhileProperty, true);
    m_ui->fraViewport->layout()->addWidget(m_viewportWidget);
    m_viewport->SetListener(this);
    connect(m_ui->cmdPreviewPrimitive, &QToolButton::clicked, this,
            &PreviewPanel::PrimitivePressed);
    connect(m_ui->cmdPreview, &QToolButton::clicked, this, &PreviewPanel::RaytracePressed);
    connect(m_ui->cmdMaterialExtended, &QToolButton::clicked, this, &PreviewPanel::ExtendedPressed);
}

PreviewPanel::~PreviewPanel()
{
    try {
        // A host that deleted the widget has ended its viewport.
        if (m_viewportWidget != nullptr) {
            m_viewport->SetListener(nullptr);
        }
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

QAbstractButton& PreviewPanel::ExtendedButton()
{
    return *m_ui->cmdMaterialExtended;
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

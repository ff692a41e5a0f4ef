#include "PanelForm.h"

#include "AttributePanel.h"
#include "LibraryPanel.h"
#include "PreviewPanel.h"
#include "SectionHeader.h"

#include <CorvexMaterial/KeyboardAccess.h>

#include <QBoxLayout>
#include <QCoreApplication>

namespace CorvexMaterial {

namespace {

QString Translated(const char* text)
{
    return QCoreApplication::translate("PanelForm", text);
}

LibraryPanelKind MaterialsKind()
{
    return {CorvexEditport::BrowserKind::Materials,
            Translated("Material Library"),
            Translated("Add the material to the library"),
            Translated("Delete the selected material from the library"),
            Translated("Choose or create a material library"),
            "MaterialLibrary",
            kMaterialRowTwips / kTwipsPerPixel};
}

// A changed height climbs from layout to layout with the event loop only; whoever measures before
// that has to settle them himself, the innermost first.
void SettleLayouts(QWidget& widget)
{
    for (QWidget* child : widget.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        SettleLayouts(*child);
    }
    if (widget.layout() != nullptr) {
        widget.layout()->activate();
    }
}

LibraryPanelKind TexturesKind()
{
    return {CorvexEditport::BrowserKind::Textures,
            Translated("Texture Library"),
            Translated("Add the texture of this channel to the library"),
            Translated("Delete the selected texture from the library"),
            Translated("Choose or create a texture library"),
            "TextureLibrary",
            kTextureRowTwips / kTwipsPerPixel};
}

}  // namespace

PanelForm::PanelForm(const ChannelServices& services, const Trap& trap, QWidget& parent)
    : m_picture(new QWidget(&parent)),
      m_preview(new PreviewPanel(services.host.viewports, m_picture)),
      m_materialHeader(new SectionHeader(Translated("Material"), m_picture)),
      m_attributes(new AttributePanel(trap, services, m_picture)),
      m_materials(new LibraryPanel(MaterialsKind(), services.host.editports, m_picture)),
      m_textures(new LibraryPanel(TexturesKind(), services.host.editports, m_picture))
{
    m_picture->setObjectName(QStringLiteral("picMaterial"));
    m_materialHeader->setObjectName(QStringLiteral("chkMaterialPanel"));
    auto* column = new QVBoxLayout(m_picture);
    column->setContentsMargins(6, 6, 6, 6);
    column->setSpacing(6);
    const std::initializer_list<QWidget*> rows{m_preview, m_materialHeader, m_attributes,
                                               m_materials, m_textures};
    for (QWidget* row : rows) {
        column->addWidget(row);
    }
    auto* outer = new QVBoxLayout(&parent);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->addWidget(m_picture);
    outer->addStretch();
    m_attributes->setVisible(false);
    GiveKeyboardAccess(*m_picture);
    QObject::connect(m_materialHeader, &QCheckBox::toggled, m_attributes, &QWidget::setVisible);
}

int PanelForm::HeightTwips() const
{
    SettleLayouts(*m_picture);
    return m_picture->sizeHint().height() * kTwipsPerPixel;
}

LibraryRows PanelForm::Rows() const
{
    return {m_textures->Rows(), m_materials->Rows()};
}

void PanelForm::SetRows(LibraryRows rows)
{
    m_textures->SetRows(rows.texture);
    m_materials->SetRows(rows.material);
}

SavedLayout PanelForm::Layout() const
{
    SavedLayout layout;
    layout.textureRows = m_textures->Rows();
    layout.materialRows = m_materials->Rows();
    layout.materialLibraryPanel = m_materials->IsExpanded();
    layout.textureLibraryPanel = m_textures->IsExpanded();
    layout.materialPanel = m_materialHeader->isChecked();
    return layout;
}

void PanelForm::SetUserLayoutEnabled(bool enabled)
{
    // The material library's heading has no part in this: only the texture library's is locked.
    m_textures->SetLayoutEnabled(enabled, enabled);
    m_materials->SetLayoutEnabled(true, enabled);
}

void PanelForm::SetBackColors(Colour preview, Colour materials, Colour textures)
{
    m_preview->Viewport().SetBackColor(preview);
    m_materials->Browser().SetBackColor(materials);
    m_textures->Browser().SetBackColor(textures);
}

}  // namespace CorvexMaterial

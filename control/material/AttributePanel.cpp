#include "AttributePanel.h"

#include "AdvancedPanel.h"
#include "ChannelPanel.h"
#include "CustomFieldsPanel.h"
#include "PluginPanel.h"
#include "SurfacePanel.h"

#include <QBoxLayout>
#include <QPushButton>

namespace CorvexMaterial {

AttributePanel::AttributePanel(const Trap& trap, const ChannelServices& services, QWidget* parent)
    : QWidget(parent), m_channels(new ChannelPanel(trap, services, this)),
      m_surface(new SurfacePanel(trap, services.platform.choosers, services.trial, this)),
      m_customFields(new CustomFieldsPanel(this)), m_advanced(new AdvancedPanel(this)),
      m_plugins(new PluginPanel(trap, services.host.plugins, services.host.numbers,
                                services.platform.choosers, services.trial, this))
{
    PlacePages();
    ConnectPages();
}

void AttributePanel::PlacePages()
{
    using Page = std::pair<ChannelTab, QWidget*>;
    const std::array pages{
        Page{ChannelTab::Surface, m_surface}, Page{ChannelTab::CustomFields, m_customFields},
        Page{ChannelTab::Advanced, m_advanced}, Page{ChannelTab::Plugin, m_plugins}};
    static_assert(pages.size() + kTextureLayerCount == kChannelTabs.size(), "a tab without a page");
    for (const auto& [tab, page] : pages) {
        m_channels->SetPage(tab, page);
    }
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 6);
    column->setSpacing(8);
    column->addWidget(m_channels);
    AddDefaultsRow();
}

void AttributePanel::AddDefaultsRow()
{
    struct Row {
        const char* name;
        QString text;
        QString tip;
        void (AttributePanel::*pressed)();
    };
    const std::array rows{
        Row{"cmdMaterialRemember", tr("Remember"), tr("Keep this material as my defaults"),
            &AttributePanel::RememberPressed},
        Row{"cmdMaterialResetUserDefaults", tr("My Defaults"), tr("Back to my remembered defaults"),
            &AttributePanel::UserDefaultsPressed},
        Row{"cmdMaterialResetDefaults", tr("Factory"), tr("Back to the factory defaults"),
            &AttributePanel::FactoryDefaultsPressed},
    };
    auto* line = new QHBoxLayout;
    line->setSpacing(4);
    for (const Row& row : rows) {
        auto* button = new QPushButton(row.text, this);
        button->setObjectName(QString::fromLatin1(row.name));
        button->setToolTip(row.tip);
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        connect(button, &QPushButton::clicked, this, row.pressed);
        line->addWidget(button);
    }
    static_cast<QVBoxLayout*>(layout())->addLayout(line);
}

void AttributePanel::ConnectPages()
{
    connect(m_channels, &ChannelPanel::Edited, this, &AttributePanel::Edited);
    connect(m_customFields, &CustomFieldsPanel::Edited, this, [this](std::size_t field) {
        Q_EMIT Edited({{Attribute::CustomFields, field}});
    });
    const auto pluginEdited = [this] { Q_EMIT Edited({{Attribute::Plugin}}); };
    connect(m_plugins, &PluginPanel::Edited, this, pluginEdited);
    connect(m_plugins, &PluginPanel::PluginChosen, this, pluginEdited);
}

}  // namespace CorvexMaterial

#pragma once

#include "ChannelServices.h"
#include "TouchedRows.h"

#include <QWidget>

namespace CorvexMaterial {

class AdvancedPanel;
class ChannelPanel;
class CustomFieldsPanel;
class PluginPanel;
class SurfacePanel;
class Trap;

/// Everything of the material that can be edited: the pages of the channel tabs, and below them the
/// three ways to defaults.
class AttributePanel : public QWidget {
    Q_OBJECT

public:
    AttributePanel(const Trap& trap, const ChannelServices& services, QWidget* parent);

    SurfacePanel& Surface() { return *m_surface; }
    AdvancedPanel& Advanced() { return *m_advanced; }
    ChannelPanel& Channels() { return *m_channels; }
    PluginPanel& Plugins() { return *m_plugins; }
    CustomFieldsPanel& CustomFields() { return *m_customFields; }

Q_SIGNALS:
    /// Any page's edit; a change by program may raise it too. Nothing touched: a picture is to be
    /// made anew.
    void Edited(const CorvexMaterial::TouchedRows& touched);
    void RememberPressed();
    void UserDefaultsPressed();
    void FactoryDefaultsPressed();

private:
    void PlacePages();
    void AddDefaultsRow();
    void ConnectPages();

    ChannelPanel* m_channels;
    SurfacePanel* m_surface;
    CustomFieldsPanel* m_customFields;
    AdvancedPanel* m_advanced;
    PluginPanel* m_plugins;
};

}  // namespace CorvexMaterial

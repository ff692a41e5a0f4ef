#pragma once

#include "ChannelServices.h"
#include "ChannelTabs.h"
#include "TouchedRows.h"

#include <QWidget>

#include <array>
#include <memory>
#include <string>

namespace Ui {
class ChannelPanel;
}

namespace CorvexMaterial {

class TextureCommands;
class TexturePage;
class Trap;

/// The material's channels: a strip of tabs over one option frame. The texture layers share one
/// page, the other tabs get theirs from the owner.
class ChannelPanel : public QWidget {
    Q_OBJECT

public:
    ChannelPanel(const Trap& trap, ChannelServices services, QWidget* parent);
    ~ChannelPanel() override;

    /// Shown in the option frame while this tab is the current one; the frame takes the page over.
    /// Only for tabs without a layer; the frame follows the page's own height.
    void SetPage(ChannelTab tab, QWidget* page);

    [[nodiscard]] int CurrentTab() const;
    /// The same as the user's click on the tab, warnings included.
    void SetCurrentTab(int tab);

    /// What a tab stands for, or the page of the current one where no tab is.
    [[nodiscard]] TouchedRows RowsOfTabAt(QPoint global) const;

    /// The widgets of the texture layers, which are the storage of their attributes.
    TexturePage& Textures() { return *m_textures; }

    /// A texture chosen outside of the panel, in the library browser: it goes to the layer of the
    /// current tab and is one edit.
    void ChooseTexture(const std::string& file);
    /// Looks again at the file of the thumbnail on show; it may have changed on disk.
    void RefreshThumbnail();
    /// Reads every thumbnail anew.
    void RebuildThumbnails();
    /// A predefined raytrace material fixes the textures: tabs, thumbnails, select and delete.
    void SetChannelsEnabled(bool enabled);
    /// A simulation texture holds the primary layer: no other may be chosen, nor it be deleted.
    void SetPrimaryLocked(bool locked);

Q_SIGNALS:
    /// Once per edit by the user. Setting a value by program emits nothing.
    void Edited(const CorvexMaterial::TouchedRows& touched);
    /// A warning that the user may silence, with its key.
    void WarningRequested(const QString& text, const QString& key);
    /// The tab of the custom material fields was entered: its rows are to be filled anew.
    void CustomFieldsShown();

private:
    void AddTabs();
    void ConnectTabs();
    void ConnectTextures();
    void OnTabChanged();
    void PutPopupLast();
    void ShowPage(int tab);
    void RaiseWarning(int tab);
    void MarkUsedTabs();

    const Trap& m_trap;
    ChannelServices m_services;
    std::unique_ptr<Ui::ChannelPanel> m_ui;
    std::array<QWidget*, kChannelTabs.size()> m_pages{};
    TexturePage* m_textures = nullptr;
    TextureCommands* m_commands = nullptr;
};

}  // namespace CorvexMaterial

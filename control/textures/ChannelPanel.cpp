#include "ChannelPanel.h"

#include "ChannelWarnings.h"
#include "TextureCommands.h"
#include "TexturePage.h"
#include "Trap.h"
#include "ui_ChannelPanel.h"

#include <QPushButton>

namespace CorvexMaterial {

ChannelPanel::ChannelPanel(const Trap& trap, ChannelServices services, QWidget* parent)
    : QWidget(parent), m_trap(trap), m_services(services),
      m_ui(std::make_unique<Ui::ChannelPanel>())
{
    m_ui->setupUi(this);
    m_textures = new TexturePage(m_ui->fraOption);
    m_commands = new TextureCommands(trap, services, *m_textures);
    for (const TextureLayerRow& row : kTextureLayers) {
        m_pages[static_cast<std::size_t>(row.tab - 1)] = m_textures;
    }
    m_ui->pages->addWidget(m_textures);
    AddTabs();
    ConnectTabs();
    ConnectTextures();
    ShowPage(CurrentTab());
}

ChannelPanel::~ChannelPanel() = default;

void ChannelPanel::AddTabs()
{
    for (const ChannelTabRow& row : kChannelTabs) {
        const int index = m_ui->tabChannels->addTab(ChannelIcon(row.sign), QString());
        m_ui->tabChannels->setTabToolTip(index, tr(row.title));
        m_ui->tabChannels->setAccessibleTabName(index, tr(row.title));
    }
    m_ui->tabChannels->setIconSize({18, 18});
    m_ui->tabChannels->setProperty(kUsableMeanwhileProperty, true);
    m_ui->tabChannels->SetFileTabs(kTextureLayers.front().tab, kTextureLayers.back().tab);
    m_ui->tabChannels->SetLayerPanel(*m_textures);
}

void ChannelPanel::ConnectTabs()
{
    connect(m_ui->tabChannels, &QTabBar::currentChanged, this, &ChannelPanel::OnTabChanged);
    // Queued: a refused file opens a box, and the drag's source waits for the end of the drop.
    connect(
        m_ui->tabChannels, &ChannelTabBar::FileDropped, this,
        [this](int tab, const QString& file) {
            SetCurrentTab(tab);
            m_commands->TakeFile(file);
        },
        Qt::QueuedConnection);
    connect(m_ui->tabChannels, &ChannelTabBar::LayerDragged, this,
            [this](int tab) { m_textures->DragLayerFrom(LayerOfTab(tab), *m_ui->tabChannels); });
    const auto take = [this](TextureLayer from, TextureLayer to, Transfer transfer) {
        SetCurrentTab(RowOf(to).tab);
        m_trap("tabChannels", [&] { m_commands->Take(from, to, transfer); });
    };
    // Queued: the drag's source waits for the end of the drop.
    connect(
        m_ui->tabChannels, &ChannelTabBar::LayerDropped, this,
        [take](int tab, TextureLayer from, Transfer transfer) {
            take(from, LayerOfTab(tab), transfer);
        },
        Qt::QueuedConnection);
    connect(m_textures, &TexturePage::LayerDropped, this, take, Qt::QueuedConnection);
}

void ChannelPanel::ConnectTextures()
{
    connect(m_textures, &TexturePage::Edited, this, &ChannelPanel::Edited);
    // On every tab: a tab without a layer of its own stands for the primary or environment one.
    connect(m_ui->cmdTexturePopup, &QPushButton::clicked, m_commands,
            &TextureCommands::OpenLibrary);
    connect(m_commands, &TextureCommands::Edited, this, &ChannelPanel::Edited);
    connect(m_textures, &TexturePage::FilesChanged, this, &ChannelPanel::MarkUsedTabs);
}

// The keyboard comes to it after the page above it, whenever that was made.
void ChannelPanel::PutPopupLast()
{
    QWidget* last = m_ui->tabChannels;
    for (QWidget* next = last->nextInFocusChain(); next != this && isAncestorOf(next);
         next = next->nextInFocusChain()) {
        last = next;
    }
    if (last != m_ui->cmdTexturePopup) {
        setTabOrder(last, m_ui->cmdTexturePopup);
    }
}

void ChannelPanel::SetPage(ChannelTab tab, QWidget* page)
{
    QWidget*& place = m_pages.at(static_cast<std::size_t>(tab) - 1);
    Q_ASSERT(place == nullptr);
    page->setParent(m_ui->fraOption);
    m_ui->pages->addWidget(page);
    place = page;
    PutPopupLast();
    ShowPage(CurrentTab());
}

int ChannelPanel::CurrentTab() const
{
    return m_ui->tabChannels->currentIndex() + 1;
}

void ChannelPanel::SetCurrentTab(int tab)
{
    m_ui->tabChannels->setCurrentIndex(tab - 1);
}

TouchedRows ChannelPanel::RowsOfTabAt(QPoint global) const
{
    const int index = m_ui->tabChannels->tabAt(m_ui->tabChannels->mapFromGlobal(global));
    const int tab = index < 0 ? CurrentTab() : index + 1;
    if (tab >= kTextureLayers.front().tab && tab <= kTextureLayers.back().tab) {
        return {{FileOf(LayerOfTab(tab))}};
    }
    return RowsOf(kChannelTabs[static_cast<std::size_t>(tab - 1)].group);
}

void ChannelPanel::OnTabChanged()
{
    const int tab = CurrentTab();
    m_commands->SetTab(tab);
    const auto layer = m_commands->CurrentLayer();
    ShowPage(tab);
    m_textures->ShowFields(layer);
    // Its own trap: the tab is shown whatever the host answers.
    m_trap("tabChannels", [&] { RaiseWarning(tab); });
    m_textures->ShowThumbnail(layer);
}

void ChannelPanel::ShowPage(int tab)
{
    const ChannelTabRow& row = kChannelTabs[static_cast<std::size_t>(tab - 1)];
    QWidget* const shown = m_pages[static_cast<std::size_t>(tab - 1)];
    // All others first, or the frame grows to hold two pages for a moment.
    for (QWidget* page : m_pages) {
        if (page != nullptr && page != shown) {
            page->setVisible(false);
        }
    }
    m_ui->fraOption->setVisible(shown != nullptr);
    m_ui->lblPage->setText(tr(row.title));
    m_ui->lblPage->setVisible(row.titleAbovePage);
    if (shown != nullptr) {
        shown->setVisible(true);
    }
    if (row.tab == ChannelTab::CustomFields) {
        Q_EMIT CustomFieldsShown();
    }
}

void ChannelPanel::RaiseWarning(int tab)
{
    const auto warning =
        WarningOfTab(tab, m_services.host.graphics, m_services.host.applicationState);
    if (warning) {
        Q_EMIT WarningRequested(QString::fromUtf8(warning->text), QString::fromUtf8(warning->key));
    }
}

void ChannelPanel::MarkUsedTabs()
{
    for (const TextureLayerRow& row : kTextureLayers) {
        m_ui->tabChannels->SetUsed(row.tab, !m_textures->File(row.layer).empty());
    }
}

void ChannelPanel::ChooseTexture(const std::string& file)
{
    m_commands->Assign(LayerOfTab(CurrentTab()), file);
}

void ChannelPanel::RebuildThumbnails()
{
    m_textures->RebuildThumbnails();
}

void ChannelPanel::RefreshThumbnail()
{
    m_textures->RefreshThumbnail();
}

void ChannelPanel::SetChannelsEnabled(bool enabled)
{
    m_ui->tabChannels->setEnabled(enabled);
    m_textures->SetLayersEnabled(enabled);
}

void ChannelPanel::SetPrimaryLocked(bool locked)
{
    m_textures->SetPrimaryLocked(locked);
}

}  // namespace CorvexMaterial

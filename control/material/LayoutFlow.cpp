#include "LayoutFlow.h"

#include "LibraryPanel.h"
#include "PanelForm.h"
#include "SectionHeader.h"
#include "Trap.h"

namespace CorvexMaterial {

LayoutFlow::LayoutFlow(const Trap& trap, PanelForm& form, SavedState& savedState)
    : m_trap(trap), m_form(form), m_savedState(savedState)
{
    ConnectLibrary(m_form.Materials(), &LayoutFlow::MaterialLibraryExpanded);
    ConnectLibrary(m_form.Textures(), &LayoutFlow::TextureLibraryExpanded);
}

void LayoutFlow::ConnectLibrary(LibraryPanel& panel, Told told)
{
    const auto addRows = [this, &panel, told](int difference) {
        m_trap("library rows", [&] {
            panel.AddRows(difference);
            Q_EMIT(this->*told)();
        });
    };
    connect(&panel, &LibraryPanel::LessPressed, this, [addRows] { addRows(-1); });
    connect(&panel, &LibraryPanel::MorePressed, this, [addRows] { addRows(1); });
    connect(&panel, &LibraryPanel::ExpandedByUser, this, [addRows] { addRows(0); });
}

void LayoutFlow::Restore()
{
    const SavedLayout saved = m_savedState.LoadLayout();
    const SavedLayout before = m_form.Layout();
    m_form.SetRows({saved.textureRows, saved.materialRows});
    m_form.Materials().SetExpanded(saved.materialLibraryPanel);
    m_form.Textures().SetExpanded(saved.textureLibraryPanel);
    m_form.MaterialHeader().setChecked(saved.materialPanel);
    m_form.SetUserLayoutEnabled(true);
    if (saved.materialRows != before.materialRows ||
        saved.materialLibraryPanel != before.materialLibraryPanel) {
        Q_EMIT MaterialLibraryExpanded();
    }
    if (saved.textureRows != before.textureRows ||
        saved.textureLibraryPanel != before.textureLibraryPanel) {
        Q_EMIT TextureLibraryExpanded();
    }
    m_form.SetBackColors(saved.previewBackground, saved.materialBackground,
                         saved.textureBackground);
}

void LayoutFlow::Save()
{
    m_savedState.SaveLayout(m_form.Layout());
}

void LayoutFlow::ShareHeight(std::int32_t availableTwips)
{
    m_form.MaterialHeader().setChecked(true);
    m_form.Textures().SetExpanded(true);
    m_form.Materials().SetExpanded(true);
    m_form.SetUserLayoutEnabled(false);
    m_form.SetRows(
        CorvexMaterial::ShareHeight(availableTwips, m_form.HeightTwips(), m_form.Rows()));
    m_form.Picture().updateGeometry();
}

void LayoutFlow::SetTexturePanel(bool expanded)
{
    SetExpanded(m_form.Textures(), expanded, &LayoutFlow::TextureLibraryExpanded);
}

void LayoutFlow::SetMaterialLibraryPanel(bool expanded)
{
    SetExpanded(m_form.Materials(), expanded, &LayoutFlow::MaterialLibraryExpanded);
}

void LayoutFlow::SetExpanded(LibraryPanel& panel, bool expanded, Told told)
{
    if (panel.IsExpanded() != expanded) {
        panel.SetExpanded(expanded);
        Q_EMIT(this->*told)();
    }
}

}  // namespace CorvexMaterial

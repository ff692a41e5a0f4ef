#pragma once

#include "SavedState.h"

#include <QObject>

#include <cstdint>

namespace CorvexMaterial {

class LibraryPanel;
class PanelForm;
class Trap;

/// How high the panel is: what of it is unfolded, the rows of the two libraries, and the height
/// that a host offers for all of it. Throws like the editor's own functions.
class LayoutFlow : public QObject {
    Q_OBJECT

public:
    /// All of it outlives the flow.
    LayoutFlow(const Trap& trap, PanelForm& form, SavedState& savedState);

    /// Shows the saved layout, lets the user change it, tells the host when all of it is in place,
    /// and shows the background colours. After an error of the store nothing has changed.
    void Restore();
    void Save();
    /// Unfolds everything, shares the height, 15 twips to a logical pixel, between the libraries
    /// and locks the layout. Tells nobody: the host has asked for it.
    void ShareHeight(std::int32_t availableTwips);
    void SetTexturePanel(bool expanded);
    void SetMaterialLibraryPanel(bool expanded);

Q_SIGNALS:
    /// Folded, unfolded, or another number of rows.
    void TextureLibraryExpanded();
    void MaterialLibraryExpanded();

private:
    using Told = void (LayoutFlow::*)();

    void ConnectLibrary(LibraryPanel& panel, Told told);
    void SetExpanded(LibraryPanel& panel, bool expanded, Told told);

    const Trap& m_trap;
    PanelForm& m_form;
    SavedState& m_savedState;
};

}  // namespace CorvexMaterial

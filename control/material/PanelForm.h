#pragma once

#include "ChannelServices.h"
#include "PanelLayout.h"
#include "SavedState.h"

class QWidget;

namespace CorvexMaterial {

class AttributePanel;
class LibraryPanel;
class PreviewPanel;
class SectionHeader;
class Trap;

/// The control's widgets, one below the other in `picMaterial`: preview, attributes, libraries.
/// Qt owns them through the parent.
class PanelForm {
public:
    PanelForm(const ChannelServices& services, const Trap& trap, QWidget& parent);

    QWidget& Picture() { return *m_picture; }
    PreviewPanel& Preview() { return *m_preview; }
    SectionHeader& MaterialHeader() { return *m_materialHeader; }
    AttributePanel& Attributes() { return *m_attributes; }
    LibraryPanel& Materials() { return *m_materials; }
    LibraryPanel& Textures() { return *m_textures; }
    LibraryPanel& Library(CorvexEditport::BrowserKind kind)
    {
        return kind == CorvexEditport::BrowserKind::Materials ? *m_materials : *m_textures;
    }

    [[nodiscard]] int HeightTwips() const;
    [[nodiscard]] LibraryRows Rows() const;
    void SetRows(LibraryRows rows);
    [[nodiscard]] SavedLayout Layout() const;
    /// While the host dictates the height the user cannot fold or resize the libraries.
    void SetUserLayoutEnabled(bool enabled);
    void SetBackColors(Colour preview, Colour materials, Colour textures);

private:
    QWidget* m_picture;
    PreviewPanel* m_preview;
    SectionHeader* m_materialHeader;
    AttributePanel* m_attributes;
    LibraryPanel* m_materials;
    LibraryPanel* m_textures;
};

}  // namespace CorvexMaterial

#pragma once

#include "MaterialPiece.h"

#include <QObject>

#include <functional>

class QMenu;
class QWidget;

namespace CorvexMaterial {

class ClipboardFlow;
class PanelForm;
class Trap;

/// The context menu of every field, group, layer and of the material itself: Copy, Paste, Reset to
/// Default, Reset to Mine, for what is under the pointer and in submenus for what it is a part of.
/// A text box keeps its own entries above them. The table of bindings tells the row of a control.
class AttributeMenu : public QObject {
    Q_OBJECT

public:
    using ControlsOf = std::function<std::vector<QWidget*>(const TouchedRow&)>;

    /// All of them outlive the menu.
    AttributeMenu(PanelForm& form, ClipboardFlow& clips, const Trap& trap, ControlsOf controlsOf);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void WatchControls();
    [[nodiscard]] TouchedRows RowsAt(QWidget* widget) const;
    /// None over what is the host's: a library, the view of the preview.
    [[nodiscard]] std::vector<MaterialPiece> PiecesAt(QWidget* widget, QPoint global) const;
    [[nodiscard]] bool Open(QWidget* widget, QPoint global);
    void Add(QMenu& menu, const MaterialPiece& piece);
    void AddResets(QMenu& menu, const MaterialPiece& piece);

    PanelForm& m_form;
    ClipboardFlow& m_clips;
    const Trap& m_trap;
    ControlsOf m_controlsOf;
};

}  // namespace CorvexMaterial

#pragma once

#include "MaterialClip.h"
#include "MaterialPiece.h"
#include <CorvexMaterial/MaterialEdit.h>

namespace CorvexMaterial {

class MaterialEditor;
class SavedState;

/// Copies, pastes and resets pieces of the material; what changes is one edit of the touched rows.
/// Throws like the editor's own functions.
class ClipboardFlow {
public:
    ClipboardFlow(MaterialEditor& editor, SavedState& savedState)
        : m_editor(editor), m_savedState(savedState)
    {
    }

    /// What the host calls the material that the panel shows.
    void SetName(const std::string& name) { m_name = name; }

    void Copy(const MaterialPiece& piece);
    /// An edit that is ready to be made.
    struct Ready {
        std::vector<EditedRow> rows;
        bool isWhole = false;
        std::string name = {};
        QString title = {};  ///< what it changes, for a person
    };
    /// Nothing where the clipboard does not fit the piece. What it holds of a piece fits: a whole
    /// material fits every one; so do a single value of the same kind and a layer's file. A whole
    /// material takes whatever there is.
    [[nodiscard]] std::optional<Ready> Pasted(const MaterialPiece& piece) const;
    [[nodiscard]] Ready Factory(const MaterialPiece& piece) const;
    /// Nothing where the user has remembered none of it.
    [[nodiscard]] std::optional<Ready> Remembered(const MaterialPiece& piece);

    void Make(const Ready& edit);
    /// Tells the user why where nothing can be pasted.
    void Paste(const MaterialPiece& piece);

private:
    /// False for what a raytrace material holds fast.
    [[nodiscard]] bool MayChange(const TouchedRow& row) const;

    MaterialEditor& m_editor;
    SavedState& m_savedState;
    std::string m_name;
};

}  // namespace CorvexMaterial

#pragma once

#include "StudioRig.h"

namespace StudioTest {

/// Shows everything that there is to see: each page of the panel, and each dialog that a menu or a
/// button of the panel opens, page by page. What is added to the window later is in it by itself.
class EveryWindow {
public:
    using Look = std::function<void(QWidget& window)>;

    EveryWindow(StudioRig& rig, Look look) : m_rig(rig), m_look(std::move(look)) {}

    void Show();
    /// Titles of the dialogs that were seen.
    [[nodiscard]] const QStringList& Dialogs() const { return m_dialogs; }

private:
    void DressFirstShape();
    void ShowPanel();
    void Trigger(const QMenu& menu);
    void Press(const QString& button);
    void LookAt(QWidget& window);
    void CloseDialogs();
    void Settle();

    StudioRig& m_rig;
    Look m_look;
    QStringList m_dialogs;
    bool m_isLooking = false;
};

/// A class, a name and a text to find a widget by.
[[nodiscard]] std::string Described(const QWidget& widget);

}  // namespace StudioTest

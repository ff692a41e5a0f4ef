#pragma once

#include "FieldMoves.h"

#include <QObject>

class QMenu;
class QWidget;

namespace CorvexMaterial {
class Choosers;
class ProcessStarter;
}  // namespace CorvexMaterial

namespace studio {

class PanelDock;
class ScenePane;
class StudioHost;
class WindowMessages;

/// The options, and what follows from them: colours, and where the values of custom fields go whose
/// names change places.
class OptionsEditing : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        StudioHost& host;
        CorvexMaterial::ProcessStarter& processes;
        CorvexMaterial::Choosers& choosers;
        WindowMessages& messages;
        ScenePane& scene;
        PanelDock& panel;
        QWidget& window;
    };

    explicit OptionsEditing(const Parts& parts) : m_parts(parts) {}

    void AddTo(QMenu& menu);

Q_SIGNALS:
    /// The number of a choice, see Themes.
    void ThemeWanted(int choice);

private:
    void ShowDialog();
    void MoveFieldValues(const FieldMoves& moves);

    Parts m_parts;
};

}  // namespace studio

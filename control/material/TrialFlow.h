#pragma once

#include "Trial.h"

namespace CorvexMaterial {

class MaterialEditor;

/// Shows on the preview shape what a dialog that is open beside the panel would make of the
/// material, and tells the host. The panel keeps what it has.
class TrialFlow : public QObject {
    Q_OBJECT

public:
    TrialFlow(MaterialEditor& editor, Trial& trial);

    [[nodiscard]] bool IsOn() const { return !m_trial.Rows().empty(); }
    void Show();

Q_SIGNALS:
    void Previewed(const CorvexMaterial::MaterialEdit& edit);
    void PreviewEnded();

private:
    void End();

    MaterialEditor& m_editor;
    Trial& m_trial;
};

}  // namespace CorvexMaterial

#include "TrialFlow.h"

#include "MaterialEditor.h"

namespace CorvexMaterial {

TrialFlow::TrialFlow(MaterialEditor& editor, Trial& trial) : m_editor(editor), m_trial(trial)
{
    connect(&m_trial, &Trial::Shown, this, &TrialFlow::Show);
    connect(&m_trial, &Trial::Ended, this, &TrialFlow::End);
}

void TrialFlow::Show()
{
    // The host may end it while it is told.
    const std::vector<EditedRow> rows = m_trial.Rows();
    m_editor.Gatherer().With(rows, [this] { m_editor.ShowPreview(); });
    Q_EMIT Previewed({rows, false});
}

void TrialFlow::End()
{
    m_editor.ShowPreview();
    Q_EMIT PreviewEnded();
}

}  // namespace CorvexMaterial

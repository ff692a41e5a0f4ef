#pragma once

#include "LeftJournal.h"

#include <QDialog>

#include <memory>

namespace Ui {
class RecoveryDialog;
}

namespace studio {

/// Shows the work of programs that ended before it was saved, and lets the user open one of them.
/// What he neither opens nor discards stays for the next time.
class RecoveryDialog : public QDialog {
    Q_OBJECT

public:
    explicit RecoveryDialog(LeftJournals journals, QWidget* parent = nullptr);
    ~RecoveryDialog() override;

    /// The one to open, once the dialog is accepted.
    [[nodiscard]] LeftJournal TakeChosen();

private:
    void AddRow(const LeftJournal& journal);
    void Discard();
    void DiscardAll();
    void Offer();
    [[nodiscard]] std::size_t Chosen() const;

    std::unique_ptr<Ui::RecoveryDialog> m_ui;
    std::vector<LeftJournal> m_journals;  ///< as the rows
};

}  // namespace studio

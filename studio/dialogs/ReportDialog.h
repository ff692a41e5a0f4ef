#pragma once

#include "Report.h"

#include <QDialog>

#include <memory>

namespace Ui {
class ReportDialog;
}

namespace studio {

class ReportModel;

/// Shows what became of each property of imported or exported materials.
class ReportDialog : public QDialog {
    Q_OBJECT

public:
    ReportDialog(const QString& title, const QString& summary, const Report& report,
                 QWidget* parent = nullptr);
    ~ReportDialog() override;

    /// That so many textures are missing, and a button that closes the dialog and has them looked
    /// for.
    void TellMissing(std::size_t textures);

Q_SIGNALS:
    void SearchWanted();

private:
    void FitColumns();

    std::unique_ptr<Ui::ReportDialog> m_ui;
    ReportModel* m_model;
};

}  // namespace studio

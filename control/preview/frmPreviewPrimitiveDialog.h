#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmPreviewPrimitiveDialog;
}

namespace CorvexMaterial {

/// Lets the user pick the object of the preview.
class frmPreviewPrimitiveDialog : public QDialog {
    Q_OBJECT

public:
    explicit frmPreviewPrimitiveDialog(QWidget* parent);
    ~frmPreviewPrimitiveDialog() override;

    /// The primitive's code, -1 while none was pressed.
    [[nodiscard]] int SelectedPrimitive() const { return m_selectedPrimitive; }

private:
    void AddPrimitive(int code);

    std::unique_ptr<Ui::frmPreviewPrimitiveDialog> m_ui;
    int m_selectedPrimitive = -1;
};

}  // namespace CorvexMaterial

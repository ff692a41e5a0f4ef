#include "frmPreviewPrimitiveDialog.h"

#include "PrimitivePictures.h"
#include "ui_frmPreviewPrimitiveDialog.h"
#include <CorvexMaterial/KeyboardAccess.h>
#include <CorvexMaterial/PreviewPrimitives.h>

namespace CorvexMaterial {

frmPreviewPrimitiveDialog::frmPreviewPrimitiveDialog(QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::frmPreviewPrimitiveDialog>())
{
    m_ui->setupUi(this);
    GiveKeyboardAccess(*this);
    for (std::size_t code = 0; code < kPreviewPrimitives.size(); ++code) {
        AddPrimitive(static_cast<int>(code));
    }
}

frmPreviewPrimitiveDialog::~frmPreviewPrimitiveDialog() = default;

void frmPreviewPrimitiveDialog::AddPrimitive(int code)
{
    const auto& row = kPreviewPrimitives[static_cast<std::size_t>(code)];
    auto* button = new QToolButton(this);
    button->setObjectName(QStringLiteral("cmdPrimitive_%1").arg(code));
    button->setText(tr(std::string(row.title).c_str()));
    button->setIcon(PrimitivePicture(code));
    button->setIconSize({56, 56});
    button->setMinimumSize(84, 92);
    button->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    button->setFocusPolicy(Qt::StrongFocus);
    m_ui->primitives->addWidget(button);
    connect(button, &QToolButton::clicked, this, [this, code] {
        m_selectedPrimitive = code;
        accept();
    });
}

}  // namespace CorvexMaterial

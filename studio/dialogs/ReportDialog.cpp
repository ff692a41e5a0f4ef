#include "ReportDialog.h"

#include "ReportModel.h"
#include "ui_ReportDialog.h"

#include <QHeaderView>
#include <QPushButton>

#include <algorithm>

namespace studio {

ReportDialog::ReportDialog(const QString& title, const QString& summary, const Report& report,
                           QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::ReportDialog>()),
      m_model(new ReportModel(report, this))
{
    m_ui->setupUi(this);
    setWindowTitle(title);
    m_ui->summary->setText(summary);
    m_ui->rows->setModel(m_model);
    m_ui->rows->verticalHeader()->setDefaultSectionSize(m_ui->rows->fontMetrics().height() + 8);
    m_ui->rows->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    const bool allKept = m_model->rowCount() == 0;
    connect(m_ui->showAll, &QCheckBox::toggled, m_model, &ReportModel::ShowAll);
    m_ui->showAll->setChecked(allKept);
    FitColumns();
}

ReportDialog::~ReportDialog() = default;

void ReportDialog::TellMissing(std::size_t textures)
{
    m_ui->summary->setText(m_ui->summary->text() + u'\n' +
                           tr("Textures that are missing: %1.").arg(textures));
    QPushButton* find = m_ui->buttons->addButton(tr("&Find..."), QDialogButtonBox::AcceptRole);
    connect(find, &QPushButton::clicked, this, [this] {
        accept();
        Q_EMIT SearchWanted();
    });
}

// By the first rows only: a large library has very many.
void ReportDialog::FitColumns()
{
    constexpr int kRowsMeasured = 200;
    m_ui->rows->horizontalHeader()->setResizeContentsPrecision(kRowsMeasured);
    m_ui->rows->resizeColumnsToContents();
    for (const int column : {ReportModel::Material, ReportModel::Property, ReportModel::Result}) {
        constexpr int kWidest = 220;
        m_ui->rows->setColumnWidth(column, std::min(m_ui->rows->columnWidth(column) + 12, kWidest));
    }
}

}  // namespace studio

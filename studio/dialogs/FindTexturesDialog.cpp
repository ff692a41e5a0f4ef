#include "FindTexturesDialog.h"

#include <CorvexMaterial/PlainText.h>

#include "ui_FindTexturesDialog.h"

#include <QDir>
#include <QHeaderView>
#include <QPushButton>

#include <algorithm>

namespace studio {
namespace {

constexpr int kMissing = 0;
constexpr int kFound = 1;
constexpr int kRowPadding = 8;

void ShowPath(QTreeWidgetItem& row, int column, const std::string& path)
{
    row.setText(column, QString::fromStdString(path));
    row.setToolTip(column, CorvexMaterial::PlainTip(QString::fromStdString(path)));
}

}  // namespace

FindTexturesDialog::FindTexturesDialog(const FoundTextures& found, const QString& folder,
                                       QWidget* parent)
    : QDialog(parent), m_ui(std::make_unique<Ui::FindTexturesDialog>())
{
    m_ui->setupUi(this);
    m_ui->textures->header()->setSectionResizeMode(QHeaderView::Stretch);
    ShowSummary(found, folder);
    for (const TextureReplacement& replacement : found.replacements) {
        AddRow(replacement);
    }
    m_ui->buttons->button(QDialogButtonBox::Ok)->setText(tr("&Replace"));
    OfferApply();
    connect(m_ui->textures, &QTreeWidget::itemChanged, this, &FindTexturesDialog::OfferApply);
}

FindTexturesDialog::~FindTexturesDialog() = default;

void FindTexturesDialog::ShowSummary(const FoundTextures& found, const QString& folder)
{
    const auto hits = std::ranges::count_if(
        found.replacements, [](const TextureReplacement& row) { return !row.found.empty(); });
    const QString name = QDir(folder).dirName();
    QString text = tr("%1 of %2 missing textures found in \"%3\". The ticked ones are replaced in "
                      "every shape that uses them.")
                       .arg(hits)
                       .arg(found.replacements.size())
                       .arg(name);
    if (hits == 0) {
        text = tr("No missing texture was found in \"%1\".").arg(name);
    }
    if (!found.complete) {
        text += tr(" The folder was not searched to its end.");
    }
    m_ui->summary->setText(text);
    m_ui->summary->setToolTip(CorvexMaterial::PlainTip(folder));
}

void FindTexturesDialog::AddRow(const TextureReplacement& replacement)
{
    auto* row = new QTreeWidgetItem(m_ui->textures);
    ShowPath(*row, kMissing, replacement.missing);
    row->setCheckState(kMissing, Qt::Unchecked);
    row->setSizeHint(kMissing, {0, fontMetrics().height() + kRowPadding});
    if (replacement.found.empty()) {
        row->setText(kFound, tr("Not found"));
        row->setDisabled(true);
        return;
    }
    ShowPath(*row, kFound, replacement.found);
    row->setCheckState(kMissing, Qt::Checked);
}

void FindTexturesDialog::OfferApply()
{
    m_ui->buttons->button(QDialogButtonBox::Ok)->setEnabled(!Chosen().empty());
}

std::vector<TextureReplacement> FindTexturesDialog::Chosen() const
{
    std::vector<TextureReplacement> chosen;
    for (int i = 0; i < m_ui->textures->topLevelItemCount(); ++i) {
        const QTreeWidgetItem& row = *m_ui->textures->topLevelItem(i);
        if (row.checkState(kMissing) == Qt::Checked) {
            chosen.push_back({row.text(kMissing).toStdString(), row.text(kFound).toStdString()});
        }
    }
    return chosen;
}

}  // namespace studio

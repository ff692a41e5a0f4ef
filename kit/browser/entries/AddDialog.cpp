#include "AddDialog.h"

#include "DetailsForm.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace studio {
namespace {

constexpr int kLongestEntryName = 200;
constexpr int kNameWidth = 240;

QStringList ChoicesOf(const DetailChoices& choices, LabelKind kind)
{
    const auto found = choices.labels.find(kind);
    return found == choices.labels.end() ? QStringList() : found->second;
}

}  // namespace

AddDialog::AddDialog(LibraryKind kind, const AddRequest& proposal, const QStringList& libraries,
                     const DetailChoices& choices, QWidget* parent)
    : QDialog(parent), m_proposal(proposal), m_name(new QLineEdit(this)),
      m_library(new QComboBox(this)),
      m_collections(NewLabelField(ChoicesOf(choices, LabelKind::Collection), this)),
      m_tags(NewLabelField(ChoicesOf(choices, LabelKind::Tag), this))
{
    setObjectName(QStringLiteral("addToLibrary"));
    setWindowTitle(kind == LibraryKind::Materials ? tr("Add Material") : tr("Add Texture"));
    m_name->setObjectName(QStringLiteral("txtEntryName"));
    m_name->setMaxLength(kLongestEntryName);
    m_name->setMinimumWidth(kNameWidth);
    m_name->setText(QString::fromStdString(proposal.name));
    m_name->selectAll();
    m_library->setObjectName(QStringLiteral("cboIntoLibrary"));
    m_library->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    for (const QString& path : libraries) {
        m_library->addItem(QFileInfo(path).fileName(), path);
    }
    const int proposed = m_library->findData(QString::fromStdString(proposal.library));
    m_library->setCurrentIndex(std::max(proposed, 0));
    m_collections->setObjectName(QStringLiteral("txtIntoCollections"));
    m_collections->setText(QString::fromStdString(TextOfLabels(proposal.details.collections)));
    m_collections->setPlaceholderText(tr("None"));
    m_tags->setObjectName(QStringLiteral("txtWithTags"));
    m_tags->setText(QString::fromStdString(TextOfLabels(proposal.details.tags)));
    m_tags->setPlaceholderText(tr("None"));

    auto* form = new QFormLayout;
    form->addRow(tr("&Name:"), m_name);
    form->addRow(tr("&Library:"), m_library);
    form->addRow(tr("&Collections:"), m_collections);
    form->addRow(tr("&Tags:"), m_tags);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
    QPushButton* add = buttons->addButton(tr("&Add"), QDialogButtonBox::AcceptRole);
    add->setDefault(true);
    const auto judge = [this, add] {
        add->setEnabled(!m_name->text().trimmed().isEmpty() && m_library->currentIndex() >= 0);
    };
    connect(m_name, &QLineEdit::textChanged, add, judge);
    connect(m_library, &QComboBox::currentIndexChanged, add, judge);
    judge();
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addWidget(buttons);
    m_name->setFocus();
}

AddRequest AddDialog::Wanted() const
{
    AddRequest wanted = m_proposal;
    wanted.name = m_name->text().simplified().toStdString();
    wanted.library = m_library->currentData().toString().toStdString();
    wanted.details.collections = LabelsOfText(m_collections->text().toStdString());
    wanted.details.tags = LabelsOfText(m_tags->text().toStdString());
    return wanted;
}

}  // namespace studio

#include "PropertiesDialog.h"

#include "DetailsForm.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace studio {
namespace {

std::vector<EntryDetails> DetailsIn(const std::vector<DescribedEntry>& entries)
{
    std::vector<EntryDetails> details;
    for (const DescribedEntry& entry : entries) {
        details.push_back(entry.details);
    }
    return details;
}

}  // namespace

PropertiesDialog::PropertiesDialog(const QString& name, std::vector<DescribedEntry> entries,
                                   const DetailChoices& choices, QWidget* parent)
    : QDialog(parent), m_entries(std::move(entries)), m_details(DetailsIn(m_entries)),
      m_form(new DetailsForm(m_details, choices, this))
{
    const auto count = static_cast<int>(m_entries.size());
    setObjectName(QStringLiteral("entryProperties"));
    setWindowTitle(tr("Properties"));
    auto* what = new QLabel(count == 1 ? name : tr("%Ln entries of the library", nullptr, count));
    what->setTextFormat(Qt::PlainText);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(what);
    column->addWidget(m_form);
    column->addWidget(buttons);
}

void PropertiesDialog::FocusTags()
{
    m_form->FocusTags();
}

std::vector<DescribedEntry> PropertiesDialog::Changed() const
{
    std::vector<DescribedEntry> changed;
    for (const DescribedEntry& entry : m_entries) {
        const EntryDetails edited = m_form->Edited(entry.details);
        if (edited != entry.details) {
            changed.push_back({entry.id, edited});
        }
    }
    return changed;
}

}  // namespace studio

#include "DetailsForm.h"

#include "LibraryFile.h"
#include "SearchCompleter.h"
#include <CorvexMaterial/PlainText.h>
#include <CorvexMaterial/Status.h>

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>

#include <algorithm>

namespace studio {
namespace {

constexpr int kLongestText = 500;
constexpr int kFieldWidth = 260;

QStringList Texts(const std::vector<std::string>& texts)
{
    QStringList list;
    for (const std::string& text : texts) {
        list << QString::fromStdString(text);
    }
    return list;
}

// What people choose most.
QStringList KnownLicences()
{
    return {QStringLiteral("CC0-1.0"), QStringLiteral("CC-BY-4.0"), QStringLiteral("CC-BY-SA-4.0"),
            QStringLiteral("CC-BY-NC-4.0"), DetailsForm::tr("All rights reserved")};
}

QComboBox* EditableList(const QStringList& choices, const char* name, QWidget* parent)
{
    auto* list = new QComboBox(parent);
    list->setEditable(true);
    list->setObjectName(QLatin1String(name));
    list->setInsertPolicy(QComboBox::NoInsert);
    list->addItems(choices);
    list->lineEdit()->setMaxLength(kLongestText);
    return list;
}

/// Where the last label begins.
qsizetype LastLabel(const QString& text)
{
    qsizetype begin = text.lastIndexOf(u',') + 1;
    while (begin < text.size() && text[begin].isSpace()) {
        ++begin;
    }
    return begin;
}

}  // namespace

DetailChoices DetailChoices::Of(LibraryFile& library)
{
    DetailChoices choices;
    try {
        choices.authors = Texts(library.Authors());
        choices.licences = Texts(library.Licences());
        for (const LabelKind kind : {LabelKind::Tag, LabelKind::Collection}) {
            for (const LabelUse& label : library.Labels(kind)) {
                choices.labels[kind] << QString::fromStdString(label.name);
            }
        }
    } catch (const CorvexMaterial::Error&) {
        return {};
    }
    return choices;
}

QLineEdit* NewLabelField(const QStringList& choices, QWidget* parent)
{
    auto* field = new QLineEdit(parent);
    auto* completer = new SearchCompleter(field, {LastLabel, 1});
    completer->SetWords(choices);
    field->setCompleter(completer);
    field->setToolTip(DetailsForm::tr("Several, with commas between them"));
    return field;
}

DetailsForm::DetailsForm(const std::vector<EntryDetails>& entries, const DetailChoices& choices,
                         QWidget* parent)
    : QWidget(parent), m_entries(entries)
{
    auto* form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    auto* author = EditableList(choices.authors, "cboAuthor", this);
    QStringList licences = choices.licences + KnownLicences();
    licences.removeDuplicates();
    auto* licence = EditableList(licences, "cboLicence", this);
    auto* source = new QLineEdit(this);
    source->setObjectName(QStringLiteral("txtSource"));
    source->setMaxLength(kLongestText);
    source->setMinimumWidth(kFieldWidth);
    AddLabels(*form, tr("&Tags:"), "txtTags", LabelKind::Tag, choices);
    AddLabels(*form, tr("&Collections:"), "txtCollections", LabelKind::Collection, choices);
    AddText(*form, tr("&Author:"), author, {author->lineEdit(), &EntryDetails::author});
    AddText(*form, tr("&Licence:"), licence, {licence->lineEdit(), &EntryDetails::licence});
    AddText(*form, tr("&Source:"), source, {source, &EntryDetails::source});
    source->setToolTip(tr("Where it comes from: an address, or any text"));
}

void DetailsForm::AddText(QFormLayout& form, const QString& title, QWidget* shown, TextRow row)
{
    const bool isSame = std::ranges::all_of(m_entries, [&](const EntryDetails& entry) {
        return entry.*row.text == m_entries.front().*row.text;
    });
    row.field->setText(isSame ? QString::fromStdString(m_entries.front().*row.text) : QString());
    row.field->setPlaceholderText(isSame ? QString() : tr("Multiple values"));
    row.field->setModified(false);
    // A list tells of a choice, and not that its field was changed by it.
    if (auto* list = qobject_cast<QComboBox*>(shown); list != nullptr) {
        connect(list, &QComboBox::textActivated, row.field,
                [field = row.field] { field->setModified(true); });
    }
    form.addRow(title, shown);
    m_texts.push_back(row);
}

void DetailsForm::AddLabels(QFormLayout& form, const QString& title, const char* name,
                            LabelKind kind, const DetailChoices& choices)
{
    const auto known = choices.labels.find(kind);
    auto* field =
        NewLabelField(known == choices.labels.end() ? QStringList() : known->second, this);
    field->setObjectName(QLatin1String(name));
    std::vector<std::string> common = LabelsIn(m_entries.front(), kind);
    std::vector<std::string> others;
    for (const EntryDetails& entry : m_entries) {
        const auto& labels = LabelsIn(entry, kind);
        std::erase_if(common, [&](const auto& label) { return !HasLabel(labels, label); });
        others.insert(others.end(), labels.begin(), labels.end());
    }
    std::erase_if(others, [&](const auto& label) { return HasLabel(common, label); });
    QString text = QString::fromStdString(TextOfLabels(common));
    field->setText(text.isEmpty() ? text : text + QStringLiteral(", "));
    if (others = TidyLabels(others); !others.empty()) {
        const QString some = tr("Some have %1").arg(QString::fromStdString(TextOfLabels(others)));
        field->setPlaceholderText(some);
        field->setToolTip(CorvexMaterial::PlainTip(
            some + QLatin1Char('\n') + tr("What is written here goes to all of them.")));
    }
    form.addRow(title, field);
    m_labels.push_back({field, kind, std::move(common)});
}

void DetailsForm::FocusTags()
{
    m_labels.front().field->setFocus();
}

EntryDetails DetailsForm::Edited(EntryDetails entry) const
{
    for (const TextRow& row : m_texts) {
        if (row.field->isModified()) {
            entry.*row.text = row.field->text().simplified().toStdString();
        }
    }
    for (const LabelRow& row : m_labels) {
        const auto written = LabelsOfText(row.field->text().toStdString());
        auto& labels = LabelsIn(entry, row.kind);
        std::erase_if(labels, [&](const auto& label) {
            return HasLabel(row.common, label) && !HasLabel(written, label);
        });
        labels.insert(labels.end(), written.begin(), written.end());
        labels = TidyLabels(labels);
    }
    return entry;
}

}  // namespace studio

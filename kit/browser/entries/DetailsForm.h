#pragma once

#include "EntryDetails.h"

#include <QStringList>
#include <QWidget>

#include <map>

class QComboBox;
class QFormLayout;
class QLineEdit;

namespace studio {

class LibraryFile;

/// What is proposed for the fields: what other entries of the library have.
struct DetailChoices {
    QStringList authors;
    QStringList licences;
    std::map<LabelKind, QStringList> labels;

    /// Nothing of a library that cannot be read.
    [[nodiscard]] static DetailChoices Of(LibraryFile& library);
};

/// Labels with commas between them, each completed.
[[nodiscard]] QLineEdit* NewLabelField(const QStringList& choices, QWidget* parent);

/// Author, licence, source, tags and collections of entries, to be edited: of several at once,
/// where what is not touched stays as it is in each.
class DetailsForm : public QWidget {
    Q_OBJECT

public:
    DetailsForm(const std::vector<EntryDetails>& entries, const DetailChoices& choices,
                QWidget* parent);

    void FocusTags();
    /// What becomes of one of the entries.
    [[nodiscard]] EntryDetails Edited(EntryDetails entry) const;

private:
    struct TextRow {
        QLineEdit* field;
        std::string EntryDetails::*text;
    };
    struct LabelRow {
        QLineEdit* field;
        LabelKind kind;
        std::vector<std::string> common;  ///< that all had
    };

    void AddText(QFormLayout& form, const QString& title, QWidget* shown, TextRow row);
    void AddLabels(QFormLayout& form, const QString& title, const char* name, LabelKind kind,
                   const DetailChoices& choices);

    const std::vector<EntryDetails>& m_entries;
    std::vector<TextRow> m_texts;
    std::vector<LabelRow> m_labels;
};

}  // namespace studio

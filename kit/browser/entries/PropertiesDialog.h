#pragma once

#include "LibraryEntry.h"

#include <QDialog>

namespace studio {

class DetailsForm;
struct DetailChoices;

/// What is noted of one entry of a library, or of several at once.
class PropertiesDialog : public QDialog {
    Q_OBJECT

public:
    /// The name is that of a single entry.
    PropertiesDialog(const QString& name, std::vector<DescribedEntry> entries,
                     const DetailChoices& choices, QWidget* parent);

    void FocusTags();
    /// The entries that the user changed, as they are to be.
    [[nodiscard]] std::vector<DescribedEntry> Changed() const;

private:
    std::vector<DescribedEntry> m_entries;
    std::vector<EntryDetails> m_details;
    DetailsForm* m_form;
};

}  // namespace studio

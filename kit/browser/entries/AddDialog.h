#pragma once

#include "AddRequest.h"
#include "LibrarySchema.h"

#include <QDialog>

class QComboBox;
class QLineEdit;

namespace studio {

struct DetailChoices;

/// Asks what is added to a library is to be called, and where it goes.
class AddDialog : public QDialog {
    Q_OBJECT

public:
    /// The libraries to choose from, by their paths.
    AddDialog(LibraryKind kind, const AddRequest& proposal, const QStringList& libraries,
              const DetailChoices& choices, QWidget* parent);

    [[nodiscard]] AddRequest Wanted() const;

private:
    AddRequest m_proposal;
    QLineEdit* m_name;
    QComboBox* m_library;
    QLineEdit* m_collections;
    QLineEdit* m_tags;
};

}  // namespace studio

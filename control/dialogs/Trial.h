#pragma once

#include <CorvexMaterial/MaterialEdit.h>

#include <QObject>

#include <functional>
#include <vector>

class QDialog;
class QWidget;

namespace CorvexMaterial {

/// What a dialog that is open beside the panel would make of the material. It is shown, and it is
/// no edit: that comes when the dialog is ended with OK. One dialog at a time.
class Trial : public QObject {
    Q_OBJECT

public:
    struct Ends {
        std::function<void()> accept;
        std::function<void()> reject;
    };

    using QObject::QObject;

    /// A dialog opens; one that was open is ended.
    void Begin(Ends ends);
    /// What its OK would do to the material.
    void Show(std::vector<EditedRow> rows);
    /// It has closed; what it chose becomes an edit after this.
    void End();

    /// Shows the dialog beside the widget and deletes it when it has closed, which is told then.
    void Open(QDialog& dialog, QWidget& beside, std::function<void()> closed);

    /// Ends the dialog as its OK does where there is something to be seen and the dialog lets it,
    /// else as Cancel does.
    void Accept();
    void Reject();
    [[nodiscard]] const std::vector<EditedRow>& Rows() const { return m_rows; }

Q_SIGNALS:
    void Shown();
    /// What was shown is to be seen no more.
    void Ended();

private:
    Ends m_ends;
    std::vector<EditedRow> m_rows;
};

}  // namespace CorvexMaterial

#include "Trial.h"

#include "BesideWork.h"

#include <QPointer>

#include <utility>

namespace CorvexMaterial {

void Trial::Begin(Ends ends)
{
    Accept();
    End();
    m_ends = std::move(ends);
}

void Trial::Show(std::vector<EditedRow> rows)
{
    m_rows = std::move(rows);
    Q_EMIT Shown();
}

void Trial::End()
{
    m_ends = {};
    if (!std::exchange(m_rows, {}).empty()) {
        Q_EMIT Ended();
    }
}

void Trial::Open(QDialog& dialog, QWidget& beside, std::function<void()> closed)
{
    const auto ending = [alive = QPointer<QDialog>(&dialog)](void (QDialog::*end)()) {
        return [alive, end] {
            if (alive != nullptr) {
                (alive->*end)();
            }
        };
    };
    Begin({ending(&QDialog::accept), ending(&QDialog::reject)});
    connect(&dialog, &QDialog::finished, this, [this, &dialog, closed = std::move(closed)] {
        dialog.deleteLater();
        End();
        closed();
    });
    new BesideWork(dialog, &beside,
                   [this, &dialog] { m_rows.empty() ? dialog.reject() : dialog.accept(); });
    BesideWork::Place(dialog, beside);
    dialog.show();
}

void Trial::Accept()
{
    const QPointer<Trial> alive(this);  // its edit is told, and who hears of it may close all this
    if (const auto accept = m_ends.accept; accept && !m_rows.empty()) {
        accept();
    }
    if (alive) {
        Reject();
    }
}

void Trial::Reject()
{
    if (const auto reject = m_ends.reject) {
        reject();
    }
}

}  // namespace CorvexMaterial

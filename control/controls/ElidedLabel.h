#pragma once

#include <QLabel>

namespace CorvexMaterial {

/// One line of plain text of any length, shown shortened to the width there is: it never asks for
/// more.
class ElidedLabel : public QLabel {
    Q_OBJECT

public:
    ElidedLabel(Qt::TextElideMode mode, QWidget* parent);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Qt::TextElideMode m_mode;
};

}  // namespace CorvexMaterial

#pragma once

#include <QCheckBox>

namespace CorvexMaterial {

/// The heading of a panel that folds out: ticked means expanded.
class SectionHeader : public QCheckBox {
    Q_OBJECT

public:
    SectionHeader(const QString& title, QWidget* parent);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    [[nodiscard]] bool hitButton(const QPoint& position) const override;
    void paintEvent(QPaintEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
};

}  // namespace CorvexMaterial

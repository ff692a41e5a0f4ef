#pragma once

#include <QWidget>

class QToolButton;

namespace studio {

class MaterialVariants;

/// Above the panel: the two slots, and a button that compares as long as it is held. In the view
/// the key C does the same.
class VariantBar : public QWidget {
    Q_OBJECT

public:
    /// Both outlive the bar.
    VariantBar(MaterialVariants& variants, QWidget& view, QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void ShowUsed();

    MaterialVariants& m_variants;
    QToolButton* m_first;
    QToolButton* m_second;
    QToolButton* m_compare;
};

}  // namespace studio

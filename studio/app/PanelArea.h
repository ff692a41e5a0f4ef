#pragma once

#include <QScrollArea>

namespace studio {

/// Scrolls its widget up and down only, and is never narrower than the widget needs.
class PanelArea : public QScrollArea {
    Q_OBJECT

public:
    explicit PanelArea(QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] int WidthFor(const QSize& content) const;
};

}  // namespace studio

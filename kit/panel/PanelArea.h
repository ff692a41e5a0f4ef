#pragma once

#include <QScrollArea>

namespace studio {

/// Scrolls its widget up and down only, and is never narrower than the widget has needed so far: a
/// panel that turns to a narrower page must not move everything beside it.
class PanelArea : public QScrollArea {
    Q_OBJECT

public:
    explicit PanelArea(QWidget* parent = nullptr);

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] int WidthAround(int contentWidth) const;

    int m_widest = 0;
};

}  // namespace studio

#pragma once

#include <QLabel>

namespace studio {

/// Text in lines that always has the height it needs at its width: layouts that do not ask for one
/// at a width, such as those of a tab, would cut it.
class WrappedLabel : public QLabel {
public:
    explicit WrappedLabel(QWidget* parent = nullptr) : QLabel(parent)
    {
        setWordWrap(true);
        setTextFormat(Qt::PlainText);
    }

    [[nodiscard]] QSize minimumSizeHint() const override
    {
        return {QLabel::minimumSizeHint().width(), heightForWidth(width())};
    }

protected:
    void resizeEvent(QResizeEvent* event) override
    {
        QLabel::resizeEvent(event);
        updateGeometry();
    }
};

}  // namespace studio

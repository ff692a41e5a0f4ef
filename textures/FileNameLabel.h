#pragma once

#include <QLabel>

namespace CorvexMaterial {

/// A path's file name, shortened in its middle to the width there is; the whole path as tool tip.
class FileNameLabel : public QLabel {
    Q_OBJECT

public:
    explicit FileNameLabel(QWidget* parent);

    /// An empty path shows the text for it instead.
    void SetFile(const QString& path, const QString& textForNone);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void Shorten();

    QString m_full;
};

}  // namespace CorvexMaterial

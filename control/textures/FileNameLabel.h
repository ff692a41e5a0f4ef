#pragma once

#include "ElidedLabel.h"

namespace CorvexMaterial {

/// A path's file name, shortened in its middle to the width there is; the whole path as tool tip.
class FileNameLabel : public ElidedLabel {
    Q_OBJECT

public:
    explicit FileNameLabel(QWidget* parent) : ElidedLabel(Qt::ElideMiddle, parent) {}

    /// An empty path shows the text for it instead.
    void SetFile(const QString& path, const QString& textForNone);
};

}  // namespace CorvexMaterial

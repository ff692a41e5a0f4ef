#include "textures/FileNameLabel.h"

#include <QFileInfo>

namespace CorvexMaterial {

void FileNameLabel::SetFile(const QString& path, const QString& textForNone)
{
    setToolTip(path);
    setText(path.isEmpty() ? textForNone : QFileInfo(path).fileName());
}

}  // namespace CorvexMaterial

#include "FileNameLabel.h"

#include <CorvexMaterial/PlainText.h>

#include <QFileInfo>

namespace CorvexMaterial {

void FileNameLabel::SetFile(const QString& path, const QString& textForNone)
{
    setToolTip(PlainTip(path));
    setText(path.isEmpty() ? textForNone : QFileInfo(path).fileName());
}

}  // namespace CorvexMaterial

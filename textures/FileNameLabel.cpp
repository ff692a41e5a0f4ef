#include "textures/FileNameLabel.h"

#include <QFileInfo>

namespace CorvexMaterial {

FileNameLabel::FileNameLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void FileNameLabel::SetFile(const QString& path, const QString& textForNone)
{
    m_full = path.isEmpty() ? textForNone : QFileInfo(path).fileName();
    setToolTip(path);
    Shorten();
}

QSize FileNameLabel::minimumSizeHint() const
{
    return {0, QLabel::minimumSizeHint().height()};
}

void FileNameLabel::resizeEvent(QResizeEvent* event)
{
    QLabel::resizeEvent(event);
    Shorten();
}

void FileNameLabel::Shorten()
{
    setText(fontMetrics().elidedText(m_full, Qt::ElideMiddle, width()));
}

}  // namespace CorvexMaterial

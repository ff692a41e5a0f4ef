#include "Driving.h"

#include <QAbstractItemView>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>

namespace CorvexTest {
namespace {

void RequireUsable(const QWidget& widget)
{
    if (!widget.isVisible() || !widget.isEnabled()) {
        throw std::logic_error(widget.objectName().toStdString() + " is hidden or disabled");
    }
}

}  // namespace

void Click(QWidget& widget)
{
    RequireUsable(widget);
    // Near the left edge: a wide check box answers to its tick and caption only.
    const QPoint place(std::min(10, widget.width() / 2), widget.height() / 2);
    QTest::mouseClick(&widget, Qt::LeftButton, {}, place);
}

void Type(QLineEdit& field, const QString& text)
{
    RequireUsable(field);
    field.selectAll();
    if (text.isEmpty()) {
        QTest::keyClick(&field, Qt::Key_Delete);
    } else {
        QTest::keyClicks(&field, text);
    }
}

void Choose(QComboBox& list, const QString& entry)
{
    RequireUsable(list);
    const int row = list.findText(entry, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (row < 0) {
        throw std::logic_error(list.objectName().toStdString() + " has no entry " +
                               entry.toStdString());
    }
    list.showPopup();
    list.view()->setCurrentIndex(list.model()->index(row, list.modelColumn()));
    QTest::keyClick(list.view(), Qt::Key_Enter);
}

bool Drop(QWidget& widget, const QMimeData& data, QPoint at)
{
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&widget, &enter);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    drop.setAccepted(false);
    QCoreApplication::sendEvent(&widget, &drop);
    QCoreApplication::processEvents();
    return enter.isAccepted() && drop.isAccepted();
}

bool DropFile(QWidget& widget, const QString& file, QPoint at)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(file)});
    return Drop(widget, data, at);
}

DialogAnswer::DialogAnswer(std::function<void(QDialog&)> answer) : m_answer(std::move(answer))
{
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { Look(); });
    m_timer.start(0);
}

/// The progress of a raytracer, which shuts everything else itself, the modal one, or one that is
/// open beside the work.
QDialog* OpenDialog()
{
    QDialog* open = nullptr;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        auto* dialog = qobject_cast<QDialog*>(window);
        if (dialog != nullptr && dialog->isVisible()) {
            if (window->objectName() == "RenderProgressDialog") {
                return dialog;
            }
            open = dialog;
        }
    }
    QWidget* const modal = QApplication::activeModalWidget();
    return modal != nullptr ? qobject_cast<QDialog*>(modal) : open;
}

DialogAnswer::~DialogAnswer()
{
    static_cast<void>(Given());
}

bool DialogAnswer::Given() const
{
    if (!m_given) {
        Look();
    }
    return m_given;
}

void DialogAnswer::Look() const
{
    auto* dialog = OpenDialog();
    if (dialog == nullptr || !dialog->isVisible()) {
        return;
    }
    m_timer.stop();
    m_given = true;
    m_answer(*dialog);
}

}  // namespace CorvexTest

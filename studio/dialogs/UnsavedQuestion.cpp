#include "UnsavedQuestion.h"

#include "Tr.h"

#include <QApplication>
#include <QDateTime>
#include <QMessageBox>
#include <QPushButton>

namespace studio {
namespace {

/// A box behind a modal window could not be answered.
QWidget* Front(QWidget& window)
{
    QWidget* const modal = QApplication::activeModalWidget();
    return modal != nullptr ? modal : &window;
}

void Prepare(QMessageBox& box, const char* name, const QString& question, const QString& more)
{
    box.setObjectName(QLatin1String(name));
    box.setWindowTitle(QStringLiteral("Corvex"));
    box.setIcon(QMessageBox::Warning);
    box.setTextFormat(Qt::PlainText);  // names of files may look like markup
    box.setText(question);
    box.setInformativeText(more);
}

ChangedByOthers Ask(QMessageBox& box, const QString& there)
{
    const QAbstractButton* overwrite = box.addButton(there, QMessageBox::DestructiveRole);
    const QPushButton* saveAs = box.addButton(Tr("Save &As..."), QMessageBox::AcceptRole);
    box.setDefaultButton(box.addButton(QMessageBox::Cancel));
    box.exec();
    if (box.clickedButton() == overwrite) {
        return ChangedByOthers::Overwrite;
    }
    return box.clickedButton() == saveAs ? ChangedByOthers::SaveAs : ChangedByOthers::Cancel;
}

}  // namespace

QString AgeText(qint64 seconds)
{
    constexpr qint64 kMinute = 60;
    constexpr qint64 kHour = 60 * kMinute;
    constexpr qint64 kDay = 24 * kHour;
    if (seconds < kMinute) {
        return Tr("less than a minute ago");
    }
    if (seconds < kHour) {
        const qint64 minutes = seconds / kMinute;
        return minutes == 1 ? Tr("a minute ago") : Tr("%1 minutes ago").arg(minutes);
    }
    if (seconds < kDay) {
        const qint64 hours = seconds / kHour;
        return hours == 1 ? Tr("an hour ago") : Tr("%1 hours ago").arg(hours);
    }
    const qint64 days = seconds / kDay;
    return days == 1 ? Tr("a day ago") : Tr("%1 days ago").arg(days);
}

Unsaved AskAboutUnsaved(QWidget& window, const QString& name, const QDateTime& savedAt)
{
    QMessageBox box(Front(window));
    Prepare(
        box, "unsavedQuestion", Tr("Save the changes to \"%1\"?").arg(name),
        savedAt.isValid()
            ? Tr("It was saved %1. What you have changed since is lost if you do not save it.")
                  .arg(AgeText(savedAt.secsTo(QDateTime::currentDateTime())))
            : Tr("It is in no document yet. What you have changed is lost if you do not save it."));
    box.setStandardButtons(QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    box.setDefaultButton(QMessageBox::Save);
    box.button(QMessageBox::Save)->setText(Tr("&Save"));
    box.button(QMessageBox::Discard)->setText(Tr("&Discard"));
    switch (box.exec()) {
    case QMessageBox::Save:
        return Unsaved::Save;
    case QMessageBox::Discard:
        return Unsaved::Discard;
    default:
        return Unsaved::Cancel;
    }
}

ChangedByOthers AskAboutChangedByOthers(QWidget& window, const QString& name)
{
    QMessageBox box(Front(window));
    Prepare(box, "changedByOthers",
            Tr("\"%1\" was changed by another program since it was read.").arg(name),
            Tr("Overwriting it loses what the other program wrote."));
    return Ask(box, Tr("&Overwrite"));
}

ChangedByOthers AskAboutGone(QWidget& window, const QString& name)
{
    QMessageBox box(Front(window));
    Prepare(
        box, "gone", Tr("\"%1\" is not there any more.").arg(name),
        Tr("It was removed or moved, or its folder was. Nothing of what is open here is lost."));
    return Ask(box, Tr("Save &There Again"));
}

}  // namespace studio

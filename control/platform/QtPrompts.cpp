#include "QtPrompts.h"

#include "DialogParent.h"

#include <QMessageBox>

namespace CorvexMaterial {

namespace {

QMessageBox::Icon IconOf(PromptIcon icon)
{
    switch (icon) {
    case PromptIcon::Information:
        return QMessageBox::Information;
    case PromptIcon::Exclamation:
        return QMessageBox::Warning;
    case PromptIcon::Critical:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

int Run(const DialogParent& parent, const Message& message, QMessageBox::StandardButtons buttons)
{
    // On the heap and watched: the parent may be destroyed, and its box with it, while it is open.
    const QPointer<QMessageBox> box = new QMessageBox(parent.Current());
    box->setIcon(IconOf(message.icon));
    box->setWindowTitle(QString::fromStdString(message.title));
    // A file name in the text is not markup.
    box->setTextFormat(Qt::PlainText);
    box->setText(QString::fromStdString(message.text));
    box->setStandardButtons(buttons);
    if (!message.details.empty()) {
        box->setDetailedText(QString::fromStdString(message.details));
    }
    const int answer = box->exec();
    delete box;
    return answer;
}

}  // namespace

QtPrompts::QtPrompts(const DialogParent& parent) : m_parent(parent) {}

void QtPrompts::Show(const Message& message)
{
    Run(m_parent, message, QMessageBox::Ok);
}

bool QtPrompts::AskYesNo(const Message& question)
{
    return Run(m_parent, question, QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes;
}

}  // namespace CorvexMaterial

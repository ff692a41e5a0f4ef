#include "WindowMessages.h"

#include "EventLog.h"
#include "StatusMessage.h"
#include "StatusText.h"

#include <QMainWindow>
#include <QStatusBar>

namespace studio {
namespace {

constexpr const char* kTitle = "Corvex";

}  // namespace

using CorvexMaterial::PromptIcon;

WindowMessages::WindowMessages(EventLog& log, CorvexMaterial::Prompts& prompts, QMainWindow& window)
    : QObject(&window), m_log(log), m_prompts(prompts), m_line(new StatusMessage(&window)),
      m_position(new QLabel(&window))
{
    m_line->setObjectName(QStringLiteral("miscField"));
    m_position->setObjectName(QStringLiteral("positionField"));
    window.statusBar()->addWidget(m_line, 1);
    window.statusBar()->addPermanentWidget(m_position);
}

void WindowMessages::Show(const QString& text)
{
    m_line->Show(text);
}

void WindowMessages::SetLasting(const QString& text)
{
    m_line->SetLasting(text);
}

void WindowMessages::ShowPosition(const QString& text)
{
    m_position->setText(text);
}

void WindowMessages::Log(const QString& text)
{
    m_log.RecordEvent(text.toStdString());
}

void WindowMessages::ShowAndLog(const QString& text)
{
    Log(text);
    Show(text);
}

void WindowMessages::Tell(const QString& text)
{
    m_prompts.Show({PromptIcon::Exclamation, kTitle, text.toStdString()});
}

void WindowMessages::Inform(const QString& text)
{
    m_prompts.Show({PromptIcon::Information, kTitle, text.toStdString()});
}

bool WindowMessages::Ask(const QString& question)
{
    return m_prompts.AskYesNo({PromptIcon::Exclamation, kTitle, question.toStdString()});
}

void WindowMessages::Check(CorvexMaterial::Status status, const QString& what)
{
    if (status != CorvexMaterial::Status::Success) {
        ShowAndLog(tr("%1: %2.").arg(what, TextOf(status)));
    }
}

}  // namespace studio

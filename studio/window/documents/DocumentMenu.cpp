#include "DocumentMenu.h"

#include "DocumentSchema.h"
#include "OpenDocument.h"
#include "SaveDialog.h"
#include "UnsavedQuestion.h"
#include "WindowMessages.h"

#include <QDir>
#include <QFileInfo>
#include <QMainWindow>
#include <QMenu>

namespace studio {

DocumentMenu::DocumentMenu(const Parts& parts) : m_parts(parts)
{
    connect(&m_parts.document, &OpenDocument::MarkChanged, this, &DocumentMenu::ShowMark);
}

void DocumentMenu::AddTo(QMenu& menu)
{
    menu.addAction(tr("&Save"), QKeySequence::Save, this, &DocumentMenu::Save)
        ->setStatusTip(tr("Writes what has changed into the document"));
    // Some desktops have no key of their own for it.
    menu.addAction(tr("Save &As..."), QKeySequence(tr("Ctrl+Shift+S")), this, &DocumentMenu::SaveAs)
        ->setStatusTip(tr("Writes another document and goes on with that"));
    menu.addAction(tr("Save a Cop&y..."), this, &DocumentMenu::SaveCopy)
        ->setStatusTip(tr("Writes another document and stays with this one"));
    m_revert = menu.addAction(tr("Re&vert"), this, &DocumentMenu::Revert);
    m_revert->setStatusTip(tr("Goes back to the document as it was saved"));
    connect(&menu, &QMenu::aboutToShow, this, &DocumentMenu::ShowMark);
    ShowMark();
}

void DocumentMenu::ShowMark()
{
    const OpenDocument& document = m_parts.document;
    // What stands for the mark in a title may be part of a name.
    const QString name = document.Name().replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
    const QString readOnly = document.ReadOnlyReason().isEmpty() ? QString() : tr(" [read-only]");
    m_parts.window.setWindowTitle(name + QStringLiteral("[*]") + readOnly + tr(" - Corvex Studio"));
    m_parts.window.setWindowModified(document.IsModified());
    if (m_revert != nullptr) {
        m_revert->setEnabled(!document.Path().isEmpty() &&
                             (document.IsModified() || document.IsChangedOnDisk()));
    }
}

bool DocumentMenu::MayGo()
{
    const OpenDocument& document = m_parts.document;
    if (document.IsBusy() || !document.IsModified()) {
        return !document.IsBusy();
    }
    switch (AskAboutUnsaved(m_parts.window, document.Name(), document.SavedAt())) {
    case Unsaved::Save:
        return Save();
    case Unsaved::Discard:
        return true;
    case Unsaved::Cancel:
        break;
    }
    return false;
}

void DocumentMenu::Open(const QString& file)
{
    if (MayGo()) {
        Read(file);
    }
}

void DocumentMenu::Read(const QString& file)
{
    QStringList problems;
    try {
        for (const std::string& problem : m_parts.document.Open(file)) {
            problems << QString::fromStdString(problem);
        }
    } catch (const FileWork::Cancelled&) {
        const QString message = tr("%1 was not opened.").arg(QFileInfo(file).fileName());
        m_parts.messages.Show(message);
        Q_EMIT Refused({}, message);
        return;
    } catch (const std::exception& error) {
        const QString message = QString::fromUtf8(error.what());
        m_parts.messages.Tell(message);
        Q_EMIT Refused(file, message);
        return;
    }
    Q_EMIT Opened(m_parts.document.Path(), problems);
}

void DocumentMenu::Revert()
{
    if (MayGo()) {
        Read(m_parts.document.Path());
    }
}

bool DocumentMenu::Save()
{
    OpenDocument& document = m_parts.document;
    if (document.Path().isEmpty() || !document.ReadOnlyReason().isEmpty()) {
        return SaveAs();
    }
    if (const auto now = document.FileNow(); now != OpenDocument::OnDisk::AsItWas) {
        const auto ask = now == OpenDocument::OnDisk::Gone ? AskAboutGone : AskAboutChangedByOthers;
        switch (ask(m_parts.window, document.Name())) {
        case ChangedByOthers::Overwrite:
            return Saving([&document] { document.SaveAs(document.Path()); });
        case ChangedByOthers::SaveAs:
            return SaveAs();
        case ChangedByOthers::Cancel:
            return false;
        }
    }
    return Saving([&document] { document.Save(); });
}

bool DocumentMenu::SaveAs()
{
    const QString file = ChooseFile(tr("Save As"));
    return !file.isEmpty() && Saving([&] { m_parts.document.SaveAs(file); });
}

bool DocumentMenu::Saving(const std::function<void()>& write)
{
    if (!m_parts.messages.Telling(write)) {
        return false;
    }
    m_parts.messages.Show(tr("%1 was saved.").arg(m_parts.document.Name()));
    Q_EMIT Saved(m_parts.document.Path());
    return true;
}

void DocumentMenu::SaveCopy()
{
    const QString file = ChooseFile(tr("Save a Copy"));
    if (!file.isEmpty() && m_parts.messages.Telling([&] { m_parts.document.SaveCopy(file); })) {
        m_parts.messages.Show(tr("%1 was saved.").arg(QFileInfo(file).fileName()));
    }
}

QString DocumentMenu::ChooseFile(const QString& title)
{
    const OpenDocument& document = m_parts.document;
    const QString source = QString::fromStdString(document.Source().path);
    const QString beside = document.Path().isEmpty() ? source : document.Path();
    const QDir folder = beside.isEmpty() ? QDir::home() : QFileInfo(beside).dir();
    return AskForTarget(m_parts.window,
                        {title,
                         folder.path(),
                         {tr("Scene documents (*.%1)").arg(QLatin1String(kDocumentSuffix))},
                         QFileInfo(document.Name()).completeBaseName()});
}

}  // namespace studio

#include "MainWindow.h"

#include "LibraryBrowsers.h"
#include "MaterialExchange.h"
#include "MaterialText.h"
#include "OptionsDialog.h"
#include "PanelFill.h"
#include "StatusMessage.h"
#include "StudioHost.h"
#include "StudioIcon.h"
#include "StudioSettings.h"
#include <CorvexMaterial/PlainText.h>

#include <QDockWidget>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

namespace studio {
namespace {

/// A step's name as a part of a menu entry: names of materials and files can be long.
QString InMenu(QString step)
{
    constexpr qsizetype kLongest = 40;
    if (step.size() > kLongest) {
        step = step.left(kLongest - 1) + u'…';
    }
    return CorvexMaterial::PlainCaption(step);
}

}  // namespace

void MainWindow::BuildMenus()
{
    BuildFileMenu();
    BuildEditMenu();
    BuildViewMenu();
    BuildLibraryMenu();
    BuildHelpMenu();
}

void MainWindow::BuildFileMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&File"));
    menu->addAction(tr("&Open..."), QKeySequence::Open, this, &MainWindow::ChooseFile);
    QMenu* recent = menu->addMenu(tr("Open Re&cent"));
    connect(recent, &QMenu::aboutToShow, this, [this, recent] { ListRecentFiles(recent); });
    menu->addAction(tr("Reset &Scene"), this, &MainWindow::ResetScene);
    menu->addAction(tr("Find Missing &Textures..."), this, &MainWindow::FindTextures)
        ->setObjectName(QStringLiteral("findTextures"));
    menu->addSeparator();
    BuildRaytraceMenu(menu);
    menu->addSeparator();
    m_exchange->AddTo(*menu);
    menu->addSeparator();
    menu->addAction(tr("&Quit"), QKeySequence(tr("Ctrl+Q")), this, &MainWindow::close);
}

void MainWindow::ListRecentFiles(QMenu* menu)
{
    menu->clear();
    const QStringList files = m_recent.Files();
    for (const QString& file : files) {
        QAction* action = menu->addAction(CorvexMaterial::PlainCaption(QFileInfo(file).fileName()),
                                          this, [this, file] { OpenModel(file); });
        action->setStatusTip(file);
    }
    if (files.isEmpty()) {
        menu->addAction(tr("No recent models"))->setEnabled(false);
        return;
    }
    menu->addSeparator();
    menu->addAction(tr("&Clear List"), this, [this] { m_recent.Clear(); });
}

void MainWindow::BuildEditMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&Edit"));
    QAction* undo = menu->addAction(tr("&Undo"), &m_history, &QUndoStack::undo);
    undo->setShortcuts(QKeySequence::Undo);
    QAction* redo = menu->addAction(tr("&Redo"), &m_history, &QUndoStack::redo);
    redo->setShortcuts(QKeySequence::Redo);
    undo->setEnabled(false);
    redo->setEnabled(false);
    connect(&m_history, &QUndoStack::canUndoChanged, undo, &QAction::setEnabled);
    connect(&m_history, &QUndoStack::canRedoChanged, redo, &QAction::setEnabled);
    connect(&m_history, &QUndoStack::undoTextChanged, undo,
            [undo](const QString& step) { undo->setText(tr("&Undo %1").arg(InMenu(step))); });
    connect(&m_history, &QUndoStack::redoTextChanged, redo,
            [redo](const QString& step) { redo->setText(tr("&Redo %1").arg(InMenu(step))); });
    menu->addSeparator();
    menu->addAction(tr("Select &All"), QKeySequence::SelectAll, this, &MainWindow::SelectAll);
    menu->addAction(tr("&Clear Selection"), QKeySequence(tr("Ctrl+Shift+A")), this,
                    [this] { m_selection.Clear(); });
    menu->addSeparator();
    menu->addAction(tr("&Options..."), QKeySequence(tr("Ctrl+,")), this, &MainWindow::ShowOptions);
}

void MainWindow::BuildViewMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&View"));
    QAction* frameSelection =
        menu->addAction(tr("Frame &Selection"), QKeySequence(tr("Ctrl+F")), this, [this] {
            StudioScene selected;
            selected.SetShapes(m_selection.All());
            Frame(selected);
        });
    frameSelection->setEnabled(false);
    connect(&m_selection, &Selection::Changed, frameSelection,
            [this, frameSelection] { frameSelection->setEnabled(!m_selection.All().empty()); });
    menu->addAction(tr("Frame &All"), QKeySequence(tr("Ctrl+Shift+F")), this,
                    [this] { Frame(m_scene); });
    menu->addSeparator();
    QAction* dock = m_dock->toggleViewAction();
    dock->setText(tr("&Material Panel"));
    dock->setShortcut(QKeySequence(tr("F4")));
    menu->addAction(dock);
    QAction* fill = menu->addAction(tr("&Fill the Dock"), m_fill, &PanelFill::Fill);
    QAction* saved = menu->addAction(tr("Saved &Layout"), m_fill, &PanelFill::Restore);
    saved->setEnabled(false);
    connect(m_fill, &PanelFill::Changed, this, [fill, saved](bool filled) {
        fill->setEnabled(!filled);
        saved->setEnabled(filled);
    });
}

void MainWindow::BuildHelpMenu()
{
    QMenu* menu = menuBar()->addMenu(tr("&Help"));
    menu->addAction(tr("Show Silenced &Messages Again"), this, &MainWindow::RestoreWarnings);
    menu->addSeparator();
    menu->addAction(tr("&About Corvex Studio"), this, &MainWindow::ShowAbout);
}

void MainWindow::ShowOptions()
{
    auto* dialog = new OptionsDialog(m_host.Settings(), m_platform.processes, this);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    connect(dialog, &QDialog::accepted, this, [this, dialog] {
        try {
            dialog->Store();
        } catch (const CorvexMaterial::Error& error) {
            Tell(QString::fromStdString(error.what()), CorvexMaterial::PromptIcon::Exclamation);
        }
        ApplyColours();
        ApplyFieldNames(dialog->Moves());
    });
    dialog->open();
}

void MainWindow::ApplyFieldNames(const FieldMoves& moves)
{
    m_material->UpdateCustomFieldNames();
    if (moves != kNoFieldMoves) {
        MoveFieldValues(moves);
    }
}

void MainWindow::MoveFieldValues(const FieldMoves& moves)
{
    if (const CorvexDB::udtMaterial* shown = m_link->ShownMaterial(); shown != nullptr) {
        CorvexDB::udtMaterial moved = *shown;
        MoveFields(moved, moves);
        Check(m_material->CopyFieldToFormMaterial(moved), tr("The values were not moved"));
    }
    try {
        if (LibraryFile* library = m_host.Browsers().Open(LibraryKind::Materials)) {
            const FieldNames names = m_host.Get().customFields.GetCustomMaterialFieldNames();
            library->EditContents([&moves, &names](const std::string& json) {
                return WithMovedFields(json, moves, names);
            });
        }
    } catch (const CorvexMaterial::Error& error) {
        Tell(QString::fromStdString(error.what()), CorvexMaterial::PromptIcon::Exclamation);
    }
    m_link->Make(ChangesBy(
        [&moves](CorvexDB::udtMaterial& material) { MoveFields(material, moves); }, m_scene.All()));
}

void MainWindow::RestoreWarnings()
{
    try {
        m_warnings.RestoreAll(QString::fromStdString(m_host.Settings().Application()));
        m_misc->Show(tr("All messages are shown again."));
    } catch (const CorvexMaterial::Error& error) {
        Tell(QString::fromStdString(error.what()), CorvexMaterial::PromptIcon::Exclamation);
    }
}

void MainWindow::ShowAbout()
{
    auto* box = new QMessageBox(this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setWindowTitle(tr("About Corvex Studio"));
    box->setIconPixmap(StudioIcon().pixmap(64));
    box->setTextFormat(Qt::RichText);
    box->setText(tr("<p style='font-size:large'><b>Corvex Studio %1</b></p>"
                    "<p>Materials for 3D models: edit, see them at once, render.<br>"
                    "A complete host of the Corvex material panel.</p>"
                    "<p>Qt %2 · MIT licence</p>")
                     .arg(QStringLiteral(CORVEX_VERSION), QLatin1String(qVersion())));
    box->open();
}

}  // namespace studio

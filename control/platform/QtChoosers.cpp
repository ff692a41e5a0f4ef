#include "QtChoosers.h"

#include "DialogParent.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QStringList>

namespace CorvexMaterial {

namespace {

/// "Description (*.a *.b)"
QString FilterOf(const FileRequest& request)
{
    QStringList patterns;
    for (const std::string& extension : request.extensions) {
        patterns << "*." + QString::fromStdString(extension);
    }
    if (patterns.isEmpty() || request.isProgram) {
        patterns.clear();
        patterns << "*";
    }
    return QString::fromStdString(request.description) + " (" + patterns.join(' ') + ')';
}

void SetUp(QFileDialog& dialog, const FileRequest& request)
{
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(request.mayBeNew ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    // Qt's own dialog matches extensions in any case; a desktop's own may not.
    dialog.setOption(QFileDialog::DontUseNativeDialog);
    dialog.setWindowTitle(QString::fromStdString(request.title));
    dialog.setNameFilter(FilterOf(request));
    if (request.mayBeNew && !request.extensions.empty()) {
        dialog.setDefaultSuffix(QString::fromStdString(request.extensions.front()));
    }
    const QString folder = QString::fromStdString(request.startFolder);
    if (!folder.isEmpty() && QFileInfo(folder).isDir()) {
        dialog.setDirectory(folder);
    }
}

}  // namespace

QtChoosers::QtChoosers(const DialogParent& parent) : m_parent(parent) {}

std::optional<Colour> QtChoosers::ChooseColour(std::optional<Colour> initial)
{
    // On the heap and watched: the parent may be destroyed, and its dialog with it, meanwhile.
    const QPointer<QColorDialog> dialog = new QColorDialog(m_parent.Current());
    if (initial) {
        const ColourBytes bytes = BytesOf(*initial);
        dialog->setCurrentColor(QColor(bytes.red, bytes.green, bytes.blue));
    }
    std::optional<Colour> chosen;
    if (dialog->exec() == QDialog::Accepted && dialog) {
        const QColor colour = dialog->selectedColor();
        chosen = MakeColour({colour.red(), colour.green(), colour.blue()});
    }
    delete dialog;
    return chosen;
}

std::optional<std::string> QtChoosers::ChooseFile(const FileRequest& request)
{
    const QPointer<QFileDialog> dialog = new QFileDialog(m_parent.Current());
    SetUp(*dialog, request);
    std::optional<std::string> chosen;
    if (dialog->exec() == QDialog::Accepted && dialog) {
        chosen = dialog->selectedFiles().value(0).toStdString();
    }
    delete dialog;
    return chosen;
}

}  // namespace CorvexMaterial

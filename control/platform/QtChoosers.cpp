#include "QtChoosers.h"

#include "BesideWork.h"
#include "ColourPicker.h"
#include "DialogParent.h"

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

/// The dialog goes with the window that it belongs to, or with this.
class OpenPicker final : public OpenColourDialog {
public:
    explicit OpenPicker(ColourPicker& picker) : m_picker(&picker) {}
    ~OpenPicker() override
    {
        if (m_picker != nullptr) {
            m_picker->disconnect();
            m_picker->hide();
            m_picker->deleteLater();
        }
    }
    OpenPicker(const OpenPicker&) = delete;
    OpenPicker& operator=(const OpenPicker&) = delete;
    void Accept() override
    {
        if (m_picker != nullptr) {
            m_picker->accept();
        }
    }

private:
    QPointer<ColourPicker> m_picker;
};

}  // namespace

QtChoosers::QtChoosers(const DialogParent& parent, SettingsStore& settings)
    : m_parent(parent), m_history(settings)
{
}

std::optional<Colour> QtChoosers::ChooseColour(std::optional<Colour> initial)
{
    // On the heap and watched: the parent may be destroyed, and its dialog with it, meanwhile.
    const QPointer<ColourPicker> dialog = new ColourPicker(m_history, m_parent.Current());
    dialog->Begin(initial.value_or(kWhite));
    std::optional<Colour> chosen;
    if (dialog->exec() == QDialog::Accepted && dialog) {
        chosen = dialog->Shown();
    }
    delete dialog;
    return chosen;
}

std::unique_ptr<OpenColourDialog> QtChoosers::OpenColour(const ColourRequest& request)
{
    QWidget* const beside = request.beside;
    auto* picker =
        new ColourPicker(m_history, beside != nullptr ? beside->window() : m_parent.Current());
    picker->Begin(request.initial.value_or(kWhite));
    QObject::connect(picker, &ColourPicker::Tried, picker, request.tried);
    QObject::connect(picker, &QDialog::finished, picker,
                     [picker, closed = request.closed](int end) {
                         const bool isChosen = end == QDialog::Accepted;
                         picker->deleteLater();
                         closed(isChosen ? std::optional(picker->Shown()) : std::nullopt);
                     });
    // Who only looked does not put the colour of one shape on all.
    new BesideWork(*picker, beside,
                   [picker] { picker->IsTouched() ? picker->accept() : picker->reject(); });
    if (beside != nullptr) {
        BesideWork::Place(*picker, *beside);
    }
    picker->show();
    return std::make_unique<OpenPicker>(*picker);
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

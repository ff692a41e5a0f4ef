#include "LibraryFlow.h"

#include "ErrorTexts.h"
#include "LibraryPanel.h"
#include "Trap.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QPointer>

#include <algorithm>

namespace CorvexMaterial {

namespace {

/// With the extension, which the name keeps when it has it in whatever case.
QString WithExtension(const QString& name, std::string_view extension)
{
    const QString suffix = u'.' + QString::fromUtf8(extension);
    return name.endsWith(suffix, Qt::CaseInsensitive) ? name : name + suffix;
}

/// How a chosen file is called: a file of the library folder by its name alone.
std::string NameInFolder(const QString& file, const std::string& folder)
{
    const QFileInfo chosen(file);
    const bool inFolder =
        !folder.empty() && QDir::cleanPath(chosen.absolutePath()) ==
                               QDir::cleanPath(QDir(QString::fromStdString(folder)).absolutePath());
    return (inFolder ? chosen.fileName() : file).toStdString();
}

}  // namespace

LibraryFlow::LibraryFlow(const LibraryTexts& texts, const LibraryServices& services)
    : m_texts(texts), m_services(services)
{
    Connect();
}

void LibraryFlow::Connect()
{
    LibraryPanel& panel = m_services.panel;
    connect(&panel, &LibraryPanel::AddPressed, this,
            [this] { m_services.trap(Location("cmd", "Add"), [this] { Add(); }); });
    connect(&panel, &LibraryPanel::DeletePressed, this,
            [this] { m_services.trap(Location("cmd", "Delete"), [this] { Delete(); }); });
    connect(&panel, &LibraryPanel::FunctionsPressed, this,
            [this] { m_services.trap(Location("cmd", "Functions"), [this] { ChooseFile(); }); });
    connect(&panel, &LibraryPanel::ListWanted, this, [this] {
        m_services.trap(Location("cbo"),
                        [this] { List(m_services.host.applicationState.LibraryFolder()); });
    });
    connect(&panel, &LibraryPanel::LibraryChosen, this, [this](const QString& entry) {
        m_services.trap(Location("cbo"), [&] { Choose(entry); });
    });
    connect(&panel, &LibraryPanel::ScrollBarMoved, this, [this](int position) {
        m_services.trap(Location("vsb"), [&] { m_services.panel.Browser().ScrollTo(position); });
    });
    connect(&panel, &LibraryPanel::Selected, this, &LibraryFlow::TakeSelected);
    connect(&panel, &LibraryPanel::Opened, this, &LibraryFlow::TakeOpened);
}

void LibraryFlow::TakeSelected(std::int32_t index)
{
    const QPointer<LibraryFlow> alive(this);  // the host hears of it and may close the control
    m_services.trap(Location("dfe"), [&] { Take(index); });
    if (alive) {
        m_selected = index;
        m_sinceSelected.start();
    }
}

// The second click of a double click opens what the first has taken already: one choice, not two.
void LibraryFlow::TakeOpened(std::int32_t index)
{
    const bool isTaken = m_selected == index && m_sinceSelected.isValid() &&
                         !m_sinceSelected.hasExpired(QApplication::doubleClickInterval());
    if (!isTaken) {
        m_services.trap(Location("dfe"), [&] { Take(index); });
    }
}

std::string LibraryFlow::Location(const char* prefix, const char* suffix) const
{
    return std::string(prefix).append(m_texts.stem).append(suffix);
}

// Whoever called tells the error; the status line must not say for ever that it is loading.
LibraryFlow::Outcome LibraryFlow::Load(const std::string& name)
{
    try {
        return Show(std::string(name));
    } catch (...) {
        SayNotOpened(name);
        throw;
    }
}

void LibraryFlow::SayNotOpened(const std::string& name)
{
    Q_EMIT StatusText(tr("%1 was not opened.").arg(QString::fromStdString(name)));
}

LibraryFlow::Outcome LibraryFlow::Show(const std::string& name)
{
    LibraryPanel& panel = m_services.panel;
    LibraryFiles& files = m_services.platform.libraryFiles;
    const std::string folder = m_services.host.applicationState.LibraryFolder();
    const std::string path = PathOf(name, folder);
    m_services.name = name;
    m_sinceSelected.invalidate();
    panel.ShowLibrary(TitleOf(name));
    Q_EMIT StatusText(QString::fromUtf8(m_texts.loading));
    panel.SetChangesEnabled(false);
    panel.Browser().Clear();
    CloseFile();
    if (IsHostLibrary(name)) {
        List(folder);
        ShowContent(name);
        return Outcome::Loaded;
    }
    if (!files.Exists(path)) {
        Tell(PromptIcon::Information,
             std::string(m_texts.missingBefore).append(name).append(m_texts.missingAfter));
        SayNotOpened(name);
        return Outcome::Missing;
    }
    // A library that stays read-only can be browsed; the host refuses changes and says why.
    files.MakeWritable(path);
    List(folder);
    ShowContent(path);
    return Outcome::Loaded;
}

void LibraryFlow::ShowContent(const std::string& path)
{
    LibraryPanel& panel = m_services.panel;
    const CorvexDB::LibraryContent content = OpenFile(path);
    panel.Browser().ShowItems(content.count);
    panel.SetChangesEnabled(true);
    if (content.isFixed) {
        panel.SetDeleteEnabled(false);
    }
    Q_EMIT StatusText(QString::fromUtf8(m_texts.loaded));
}

bool LibraryFlow::IsHostLibrary(const std::string& name)
{
    const auto libraries = HostLibraries();
    return std::any_of(libraries.begin(), libraries.end(),
                       [&](const auto& library) { return library.name == name; });
}

std::string LibraryFlow::TitleOf(const std::string& name)
{
    for (const CorvexDB::HostLibrary& library : HostLibraries()) {
        if (library.name == name) {
            return library.title;
        }
    }
    return name;
}

// Files come and go in the folder while the panel is there.
void LibraryFlow::List(const std::string& folder)
{
    auto names = m_services.platform.libraryFiles.NamesIn(folder, std::string(m_texts.extension));
    for (const CorvexDB::HostLibrary& library : HostLibraries()) {
        names.push_back(library.title);
    }
    m_services.panel.ListLibraries(names);
    m_services.panel.ShowLibrary(TitleOf(m_services.name));
}

std::string LibraryFlow::PathOf(const std::string& name, const std::string& folder) const
{
    const bool asGiven = folder.empty() || QDir::isAbsolutePath(QString::fromStdString(name));
    return asGiven ? name : folder + '/' + name;
}

void LibraryFlow::Choose(const QString& entry)
{
    for (const CorvexDB::HostLibrary& library : HostLibraries()) {
        if (library.title == entry.toStdString()) {
            Load(library.name);
            return;
        }
    }
    Load(WithExtension(entry, m_texts.extension).toStdString());
}

void LibraryFlow::ChooseFile()
{
    const WarningRow& hint = RowOf(m_texts.newLibraryHint);
    Q_EMIT WarningRequested(QString::fromUtf8(hint.text), QString::fromUtf8(hint.key));

    const std::string folder = m_services.host.applicationState.LibraryFolder();
    const QFileInfo open(QString::fromStdString(PathOf(m_services.name, folder)));
    FileRequest request;
    request.title = tr("Choose or Create a Library").toStdString();
    request.description = m_texts.description;
    request.extensions = {std::string(m_texts.extension)};
    request.startFolder = open.absolutePath().toStdString();
    request.mayBeNew = true;
    const auto chosen = m_services.platform.choosers.ChooseFile(request);
    if (!chosen) {
        return;
    }
    QString file = QString::fromStdString(*chosen);
    if (!m_services.platform.libraryFiles.Exists(*chosen)) {
        file = WithExtension(file, m_texts.extension);
        if (!m_services.platform.libraryFiles.Exists(file.toStdString())) {
            CreateFile(file.toStdString());
        }
    }
    Load(NameInFolder(file, folder));
}

void LibraryFlow::Add()
{
    if (AddCurrent()) {
        Load(std::string(m_services.name));
    }
}

void LibraryFlow::Delete()
{
    const std::int32_t index = m_services.panel.Browser().SelectedIndex();
    if (index >= 0) {
        DeleteAt(index);
        Load(std::string(m_services.name));
    }
}

void LibraryFlow::Tell(PromptIcon icon, const std::string& text)
{
    m_services.platform.prompts.Show({icon, std::string(kBoxTitle), text});
}

}  // namespace CorvexMaterial

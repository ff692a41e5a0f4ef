#include "StudioRig.h"

#include "FileWork.h"
#include "SqliteMaterialLibrary.h"
#include "SqliteTextureLibrary.h"
#include "ThemeColours.h"
#include <CorvexMaterial/Translations.h>

namespace StudioTest {

StudioRig::StudioRig()
{
    QApplication::setPalette(studio::PaletteOf(studio::Theme::Dark));
    // Once: "1 shape" and "2 shapes".
    [[maybe_unused]] static const bool translated = CorvexMaterial::InstallTranslations();
    qputenv("XDG_CONFIG_HOME", files.Path().toLocal8Bit());
}

StudioRig::~StudioRig()
{
    if (m_window) {
        Stop();
    }
}

void StudioRig::Start()
{
    m_desktop = std::make_unique<studio::StudioDesktop>();
    CorvexMaterial::Platform& desktop = m_desktop->Get();
    m_platform = std::make_unique<CorvexMaterial::Platform>(CorvexMaterial::Platform{
        desktop.settings, prompts, desktop.choosers, desktop.processes, desktop.temporaryFiles,
        desktop.library, desktop.imageFormats, desktop.libraryFiles});
    m_host = std::make_unique<studio::StudioHost>(studio::ProfileIn(files.Path()),
                                                  m_desktop->OwnSettings(), desktop.processes);
    m_window = std::make_unique<studio::MainWindow>(
        *m_host, *m_platform, studio::ImportProgram{QStringLiteral(STUDIO_PROGRAM)},
        [this] { return now; });
    if (!asksWhenAdding) {
        m_host->Materials().SetAsking({});
        m_host->Textures().SetAsking({});
    }
    m_window->show();
    m_window->activateWindow();
}

void StudioRig::Stop()
{
    m_window->History().setClean();  // nobody is there to be asked
    m_window->close();
    m_window.reset();
    m_host.reset();
    m_platform.reset();
    m_desktop.reset();
}

QAction& StudioRig::Action(const QString& action)
{
    for (QAction* offered : m_window->findChildren<QAction*>()) {
        if (offered->text().remove('&') == action) {
            return *offered;
        }
    }
    throw std::logic_error("no menu offers " + action.toStdString());
}

std::shared_ptr<studio::StudioShape> StudioRig::Shape(std::size_t index)
{
    return m_window->Scene().All().at(index);
}

void StudioRig::Select(std::vector<std::size_t> indices)
{
    studio::Selection::Shapes shapes;
    for (const std::size_t index : indices) {
        shapes.push_back(Shape(index));
    }
    m_window->Selected().Set(shapes);
}

void StudioRig::Open(const QString& file)
{
    QSignalSpy opened(m_window.get(), &studio::MainWindow::SceneOpened);
    QSignalSpy refused(m_window.get(), &studio::MainWindow::SceneRefused);
    m_window->OpenModel(file);
    if (!QTest::qWaitFor([&] { return !opened.empty() || !refused.empty(); }, 30000)) {
        throw std::runtime_error("the model is neither shown nor refused");
    }
}

void StudioRig::AwaitFiles()
{
    if (!QTest::qWaitFor([this] { return !m_window->Work().IsBusy(); }, 30000)) {
        throw std::runtime_error("a file is not written");
    }
}

void StudioRig::Reveal(const QWidget& control)
{
    auto& tabs = Find<QTabBar>("tabChannels");
    for (int tab = 0; tab < tabs.count() && !control.isVisible(); ++tab) {
        tabs.setCurrentIndex(tab);
    }
}

}  // namespace StudioTest

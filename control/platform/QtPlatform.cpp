#include <CorvexMaterial/QtPlatform.h>

#include "DialogParent.h"
#include "QtChoosers.h"
#include "QtControlLibrary.h"
#include "QtImageFormats.h"
#include "QtLibraryFiles.h"
#include "QtProcesses.h"
#include "QtPrompts.h"
#include "QtSettingsStore.h"
#include "QtTemporaryFiles.h"

namespace CorvexMaterial {

struct QtPlatform::Parts {
    DialogParent dialogParent;
    QtSettingsStore settings{QtSettingsStore::UserFolder()};
    QtPrompts prompts{dialogParent};
    QtChoosers choosers{dialogParent, settings};
    QtProcessStarter processes;
    QtTemporaryFiles temporaryFiles;
    QtControlLibrary library;
    QtImageFormats imageFormats;
    QtLibraryFiles libraryFiles;
    Platform platform{settings,       prompts, choosers,     processes,
                      temporaryFiles, library, imageFormats, libraryFiles};
};

QtPlatform::QtPlatform(QWidget* dialogParent) : m_parts(std::make_unique<Parts>())
{
    SetDialogParent(dialogParent);
}

QtPlatform::~QtPlatform() = default;

Platform& QtPlatform::Get()
{
    return m_parts->platform;
}

void QtPlatform::SetDialogParent(QWidget* dialogParent)
{
    m_parts->dialogParent.widget = dialogParent;
}

}  // namespace CorvexMaterial

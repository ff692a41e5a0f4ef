#pragma once

#include <CorvexMaterial/Files.h>
#include <CorvexMaterial/Processes.h>
#include <CorvexMaterial/Prompts.h>
#include <CorvexMaterial/SettingsStore.h>

namespace CorvexMaterial {

/// What the control needs of the desktop. All of it outlives the control.
struct Platform {
    SettingsStore& settings;
    Prompts& prompts;
    Choosers& choosers;
    ProcessStarter& processes;
    TemporaryFiles& temporaryFiles;
    ControlLibrary& library;
    ImageFormats& imageFormats;
    LibraryFiles& libraryFiles;
};

}  // namespace CorvexMaterial

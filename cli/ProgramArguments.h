#pragma once

#include "LibraryCommandLine.h"
#include "SceneCommandLine.h"
#include <CorvexMaterial/CorvexDB.h>

#include <QSize>
#include <QString>
#include <QStringList>

#include <optional>

namespace studio {

/// How the program ends.
enum class ExitCode : int { Done = 0, Failed = 1, WrongUsage = 2 };

/// One picture to draw without a window.
struct RenderJob {
    QString model;      ///< empty: the primitive
    int primitive = 2;  ///< code of the preview primitive
    QString output;
    QSize size{800, 600};                          ///< pixels
    QStringList assignments;                       ///< `key=value`, already checked
    std::optional<CorvexDB::Raytracer> raytracer;  ///< none: drawn as in the window
    bool json = false;
    bool strict = false;  ///< what is lost makes it a failure
};

/// One model to write as another.
struct ConvertJob {
    QString input;
    QString output;
    bool json = false;
    bool strict = false;  ///< what is lost makes it a failure
};

enum class Action { OpenWindow, Render, Export, Convert, Scene, Library, ShowText, Refuse };

struct CommandLine {
    Action action = Action::OpenWindow;
    QString model;  ///< to open in the window, may be empty
    RenderJob render;
    ConvertJob convert;
    SceneJob scene;
    LibraryJob library;
    QString text;  ///< to show, or what is wrong
};

/// Without the program's name.
[[nodiscard]] CommandLine ReadCommandLine(const QStringList& arguments);

}  // namespace studio

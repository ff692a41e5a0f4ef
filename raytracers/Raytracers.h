#pragma once

// What is known of each raytracer: one row each, which panel, studio and command line loop over.
// The folder of a host's scene writers has the rest of it.

#include "RaytraceOptions.h"
#include <CorvexMaterial/CorvexDB.h>
#include <CorvexMaterial/CorvexViewport.h>

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace CorvexMaterial {

struct ProgramFacts {
    std::string_view noun;   ///< as a person calls it
    std::string_view label;  ///< the same with its shortcut
    /// By which it is found where programs are; empty when it has to be chosen.
    std::string_view usualName;
    /// Names it to a program without settings.
    std::string_view variable;
    /// Where the control keeps its path, in the section of the application; empty when the host
    /// does
    /// (`ApplicationState::PovRayProgram`).
    std::string_view locationKey;
    /// The studio's own program that the panel starts instead, which is beside it or where this
    /// variable says; both empty when there is none.
    std::string_view launcher;
    std::string_view launcherVariable;
};

/// What the panel asks and says before it starts one.
struct CheckFacts {
    std::string_view notFound;  ///< a question; without `select` Yes opens the web site
    std::string_view select;    ///< asked after Yes; Yes opens a chooser
    std::string_view visit;     ///< asked after No; Yes opens the web site
    std::string_view chooserDescription;
    CorvexDB::WebSite site;
    std::string_view hintKey;  ///< of the warning that comes before each job; empty for none
};

/// Which textures a job of the panel may use.
enum class TiffRule : std::uint8_t { Any, NoTiff, OnlyTiff };

struct SceneFacts {
    std::string_view suffix;         ///< of the scene file, without a dot
    std::string_view pictureSuffix;  ///< of the picture, where the host chooses its type
    std::string_view title;          ///< of the scene file, for a menu
    std::string_view filter;         ///< for a file dialog
    TiffRule tiff;
    std::string_view wrongTextures;  ///< what the panel says when the rule is broken
};

/// What to render, by the names of its files.
struct RenderTask {
    std::string program;
    std::string scene;
    std::string exported;  ///< the same, as its exporter calls it
    std::string settings;  ///< for those that have such a file
    std::string picture;
    CorvexViewport::PixelSize size;
    std::int32_t antialias = 0;  ///< 0 off, 1 depth 2, any other value depth 4
};

struct RenderStart {
    CorvexDB::CommandLine command;
    std::string settings;            ///< what the file of settings holds; empty when there is none
    std::vector<std::string> trace;  ///< lines for the debug trace
};

/// What is to be known of what it prints.
struct OutputFacts {
    /// How far it is, 0 to 100, when the line says so; null for one that never does.
    std::optional<int> (*percentIn)(std::string_view line) = nullptr;
    /// What its complaints begin with, what matters most first.
    std::span<const std::string_view> complaints = {};
    /// In lines that it prints whenever it runs and that are no complaint; empty for none.
    std::string_view usual = {};
    /// Whether its exit code tells of every error; else what it prints does too.
    bool exitCodeTells = true;
};

struct RaytracerRow {
    CorvexDB::Raytracer kind;
    std::string_view word;  ///< on command lines, and in the names of its controls
    std::string_view name;
    ProgramFacts program;
    CheckFacts check;
    SceneFacts scene;
    /// How the panel starts it.
    RenderStart (*panelStart)(const RenderTask& task, CorvexDB::ApplicationState& state);
    /// How it is started in the folder of a scene, by its program itself.
    CorvexDB::CommandLine (*plainStart)(const RenderTask& task);
    OutputFacts output;
    /// Whether it costs no more than a second of a processor to follow the dialog with it.
    bool rendersUnasked = false;
    /// What no scene can have it show.
    std::span<const RaytraceOption> cannotShow;
};

/// In the order of their kinds.
[[nodiscard]] std::span<const RaytracerRow> Raytracers();

/// The first for a kind that there is none of.
[[nodiscard]] const RaytracerRow& RowOf(CorvexDB::Raytracer kind,
                                        std::span<const RaytracerRow> rows = Raytracers());

/// "FILE.pov or FILE.rib" for "FILE" and " or ".
[[nodiscard]] std::string SceneNames(std::string_view name, std::string_view between);

[[nodiscard]] bool Honours(const RaytracerRow& row, RaytraceOption option);

}  // namespace CorvexMaterial

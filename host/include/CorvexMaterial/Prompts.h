#pragma once

#include <CorvexMaterial/Colour.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QWidget;

namespace CorvexMaterial {

enum class PromptIcon { Information, Exclamation, Critical };

struct Message {
    PromptIcon icon = PromptIcon::Information;
    std::string title;
    std::string text;
    /// Shown on demand, for who wants to know more; empty = nothing.
    std::string details = {};
};

/// Modal message boxes; each returns when the user has closed it.
class Prompts {
public:
    virtual ~Prompts() = default;
    virtual void Show(const Message& message) = 0;
    /// True for Yes; closing the box otherwise is No.
    virtual bool AskYesNo(const Message& question) = 0;
};

struct FileRequest {
    std::string title;
    std::string description;
    std::vector<std::string> extensions;  ///< lower case, no dot; empty = any file
    std::string startFolder;              ///< empty = the desktop's choice
    bool mayBeNew = false;                ///< a name that does not exist yet is accepted
    /// A program is chosen. Programs have no extension here: every file is offered.
    bool isProgram = false;
};

/// A widget, or an action, that has this property set can be used while a dialog is open beside the
/// work: a view that is turned, tabs that are turned over. Whatever else the user begins in the
/// program ends the dialog first: as its OK does where he has tried something in it.
inline constexpr const char* kUsableMeanwhileProperty = "corvexUsableMeanwhile";

/// A colour dialog that is open beside the work. Deleting this object closes it, and nothing is
/// told any more.
class OpenColourDialog {
public:
    virtual ~OpenColourDialog() = default;
    /// As its OK does.
    virtual void Accept() = 0;
};

struct ColourRequest {
    std::optional<Colour> initial;  ///< empty = the dialog's own
    QWidget* beside = nullptr;      ///< what asks for the colour; the dialog opens near it
    /// Each colour that the user tries before he chooses one.
    std::function<void(Colour)> tried;
    /// Once, when the dialog has closed: what was chosen, nothing when the user cancelled.
    std::function<void(std::optional<Colour>)> closed;
};

/// Modal choosers; nothing when the user cancelled.
class Choosers {
public:
    virtual ~Choosers() = default;
    virtual std::optional<Colour> ChooseColour(std::optional<Colour> initial) = 0;
    /// A colour dialog that lets the work go on. Null when it has closed already, as it has where a
    /// desktop knows the modal one alone.
    virtual std::unique_ptr<OpenColourDialog> OpenColour(const ColourRequest& request)
    {
        request.closed(ChooseColour(request.initial));
        return nullptr;
    }
    virtual std::optional<std::string> ChooseFile(const FileRequest& request) = 0;
};

}  // namespace CorvexMaterial

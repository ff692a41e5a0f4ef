#pragma once

#include <CorvexMaterial/Colour.h>

#include <optional>
#include <string>
#include <vector>

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

/// Modal choosers; nothing when the user cancelled.
class Choosers {
public:
    virtual ~Choosers() = default;
    virtual std::optional<Colour> ChooseColour(std::optional<Colour> initial) = 0;
    virtual std::optional<std::string> ChooseFile(const FileRequest& request) = 0;
};

}  // namespace CorvexMaterial

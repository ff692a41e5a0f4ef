#include "RecordingPlatform.h"

namespace CorvexTest {
namespace {

/// Has ended before anybody asks.
class EndedProcess : public CorvexMaterial::Process {
public:
    explicit EndedProcess(int exitCode) : m_exitCode(exitCode) {}

    CorvexMaterial::ProcessState Wait(std::chrono::milliseconds /*timeout*/) override
    {
        return CorvexMaterial::ProcessState::Exited;
    }
    int ExitCode() override { return m_exitCode; }
    std::string TakeOutput() override { return {}; }
    std::string TakeErrorOutput() override { return {}; }
    void Stop() override {}

private:
    int m_exitCode;
};

template <typename Answer>
std::optional<Answer> Take(std::deque<Answer>& answers)
{
    if (answers.empty()) {
        return std::nullopt;
    }
    Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

}  // namespace

std::optional<std::string> RecordingStore::Read(const CorvexMaterial::SettingAddress& address)
{
    m_log.Enter("Store.Read", address.section + "/" + address.key);
    const auto found = m_values.find({address.application, address.section, address.key});
    return found == m_values.end() ? std::nullopt : std::optional(found->second);
}

void RecordingStore::Write(const CorvexMaterial::SettingAddress& address, const std::string& value)
{
    m_log.Enter("Store.Write", address.section + "/" + address.key + "=" + value);
    m_values[{address.application, address.section, address.key}] = value;
}

void RecordingStore::Put(const std::string& key, const std::string& value,
                         const std::string& section)
{
    m_values[{application, section, key}] = value;
}

std::optional<std::string> RecordingStore::Get(const std::string& key,
                                               const std::string& section) const
{
    const auto found = m_values.find({application, section, key});
    return found == m_values.end() ? std::nullopt : std::optional(found->second);
}

void RecordingPrompts::Show(const CorvexMaterial::Message& message)
{
    m_log.Enter("Prompts.Show", message.title + ": " + message.text);
    shown.push_back(message);
}

bool RecordingPrompts::AskYesNo(const CorvexMaterial::Message& question)
{
    m_log.Enter("Prompts.AskYesNo", question.title + ": " + question.text);
    return Take(answers).value_or(false);
}

std::optional<CorvexMaterial::Colour>
RecordingChoosers::ChooseColour(std::optional<CorvexMaterial::Colour> initial)
{
    m_log.Enter("Choosers.ChooseColour", initial ? std::to_string(*initial) : "none");
    return Take(colours);
}

std::unique_ptr<CorvexMaterial::OpenColourDialog>
RecordingChoosers::OpenColour(const CorvexMaterial::ColourRequest& request)
{
    class Open : public CorvexMaterial::OpenColourDialog {
    public:
        explicit Open(RecordingChoosers& choosers) : m_choosers(choosers) {}
        ~Open() override { m_choosers.open.reset(); }
        void Accept() override { m_choosers.Close(); }

    private:
        RecordingChoosers& m_choosers;
    };
    if (!staysOpen) {
        return Choosers::OpenColour(request);
    }
    open = request;
    return std::make_unique<Open>(*this);
}

void RecordingChoosers::Close()
{
    const CorvexMaterial::ColourRequest closing = std::exchange(open, std::nullopt).value();
    closing.closed(Take(colours));
}

std::optional<std::string> RecordingChoosers::ChooseFile(const CorvexMaterial::FileRequest& request)
{
    m_log.Enter("Choosers.ChooseFile", request.title);
    return Take(files);
}

std::unique_ptr<CorvexMaterial::Process>
RecordingProcesses::Start(const CorvexMaterial::ProcessRequest& request)
{
    m_log.Enter("ProcessStarter.Start", request.program);
    requests.push_back(request);
    return passOn == nullptr ? std::make_unique<EndedProcess>(exitCode) : passOn->Start(request);
}

std::string RecordingTemporaryFiles::Folder()
{
    m_log.Enter("TemporaryFiles.Folder");
    return passOn == nullptr ? "/temporary" : passOn->Folder();
}

std::string RecordingTemporaryFiles::Claim(const std::string& extension)
{
    m_log.Enter("TemporaryFiles.Claim", extension);
    present.push_back(passOn == nullptr
                          ? "/temporary/~CVX" + std::to_string(m_next++) + "." + extension
                          : passOn->Claim(extension));
    return present.back();
}

void RecordingTemporaryFiles::Write(const std::string& path, const std::string& text)
{
    m_log.Enter("TemporaryFiles.Write", path);
    written[path] = text;
    present.push_back(path);
    if (passOn != nullptr) {
        passOn->Write(path, text);
    }
}

bool RecordingTemporaryFiles::HasContent(const std::string& path)
{
    m_log.Enter("TemporaryFiles.HasContent", path);
    return passOn == nullptr ? imagesAreMade : passOn->HasContent(path);
}

void RecordingTemporaryFiles::Remove(const std::string& path)
{
    m_log.Enter("TemporaryFiles.Remove", path);
    std::erase(present, path);
    if (passOn != nullptr) {
        passOn->Remove(path);
    }
}

std::vector<std::string> RecordingLibraryFiles::NamesIn(const std::string& folder,
                                                        const std::string& extension)
{
    m_log.Enter("LibraryFiles.NamesIn", folder + " " + extension);
    std::vector<std::string> names;
    for (const std::string& path : paths) {
        if (path.starts_with(folder + "/") && path.ends_with("." + extension)) {
            names.push_back(path.substr(folder.size() + 1));
        }
    }
    return names;
}

}  // namespace CorvexTest

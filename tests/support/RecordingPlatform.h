#pragma once

#include "platform/Platform.h"
#include "tests/support/CallLog.h"

#include <deque>
#include <map>
#include <set>
#include <tuple>

namespace CorvexTest {

/// A settings store in memory. It logs "section/key", for writes with "=value".
class RecordingStore : public CorvexMaterial::SettingsStore {
public:
    explicit RecordingStore(CallLog& log) : m_log(log) {}

    std::optional<std::string> Read(const CorvexMaterial::SettingAddress& address) override;
    void Write(const CorvexMaterial::SettingAddress& address, const std::string& value) override;
    void Flush(const std::string& application) override;

    /// Without a log entry, for preparing and checking; section "Application".
    void Put(const std::string& key, const std::string& value);
    [[nodiscard]] std::optional<std::string> Get(const std::string& key) const;
    [[nodiscard]] std::optional<std::string> GetTip(const std::string& key) const;
    void PutTip(const std::string& key, const std::string& value);
    [[nodiscard]] std::size_t Size() const { return m_values.size(); }

    std::string application = "Corvex";

private:
    using Address = std::tuple<std::string, std::string, std::string>;

    CallLog& m_log;
    std::map<Address, std::string> m_values;
};

/// Message boxes that answer themselves.
class RecordingPrompts : public CorvexMaterial::Prompts {
public:
    explicit RecordingPrompts(CallLog& log) : m_log(log) {}

    void Show(const CorvexMaterial::Message& message) override;
    bool AskYesNo(const CorvexMaterial::Message& question) override;

    std::vector<CorvexMaterial::Message> shown;
    std::deque<bool> answers;  ///< No when empty

private:
    CallLog& m_log;
};

/// Choosers whose answers are set before; cancelled when none is left.
class RecordingChoosers : public CorvexMaterial::Choosers {
public:
    explicit RecordingChoosers(CallLog& log) : m_log(log) {}

    std::optional<CorvexMaterial::Colour>
    ChooseColour(std::optional<CorvexMaterial::Colour> initial) override;
    std::optional<std::string> ChooseFile(const CorvexMaterial::FileRequest& request) override;

    std::deque<CorvexMaterial::Colour> colours;
    std::deque<std::string> files;

private:
    CallLog& m_log;
};

class RecordingProcesses : public CorvexMaterial::ProcessStarter {
public:
    explicit RecordingProcesses(CallLog& log) : m_log(log) {}

    std::unique_ptr<CorvexMaterial::Process>
    Start(const CorvexMaterial::ProcessRequest& request) override;

    int exitCode = 0;
    std::vector<CorvexMaterial::ProcessRequest> requests;
    /// Really starts what is asked for.
    CorvexMaterial::ProcessStarter* passOn = nullptr;

private:
    CallLog& m_log;
};

class RecordingTemporaryFiles : public CorvexMaterial::TemporaryFiles {
public:
    explicit RecordingTemporaryFiles(CallLog& log) : m_log(log) {}

    std::string Folder() override;
    std::string Claim(const std::string& extension) override;
    void Write(const std::string& path, const std::string& text) override;
    bool HasContent(const std::string& path) override;
    void Remove(const std::string& path) override;

    std::map<std::string, std::string> written;
    std::vector<std::string> present;  ///< claimed or written, and not removed since
    bool imagesAreMade = true;         ///< whatever is asked for has content
    /// Really works on files.
    CorvexMaterial::TemporaryFiles* passOn = nullptr;

private:
    CallLog& m_log;
    int m_next = 1;
};

class RecordingLibrary : public CorvexMaterial::ControlLibrary {
public:
    explicit RecordingLibrary(CallLog& log) : m_log(log) {}

    std::string Folder() override;

private:
    CallLog& m_log;
};

class RecordingImageFormats : public CorvexMaterial::ImageFormats {
public:
    explicit RecordingImageFormats(CallLog& log) : m_log(log) {}

    bool CanReadTiff() override;
    bool CanWriteJpeg() override;

    bool available = true;

private:
    CallLog& m_log;
};

/// Library files that are only names; by default the two of a fresh start are there.
class RecordingLibraryFiles : public CorvexMaterial::LibraryFiles {
public:
    explicit RecordingLibraryFiles(CallLog& log) : m_log(log) {}

    bool Exists(const std::string& path) override;
    bool MakeWritable(const std::string& path) override;
    std::vector<std::string> NamesIn(const std::string& folder,
                                     const std::string& extension) override;

    std::set<std::string> paths{"/libraries/Gems.cvm", "/libraries/Gems.cvt"};
    bool writable = true;

private:
    CallLog& m_log;
};

/// A complete desktop in memory.
class RecordingPlatform {
public:
    explicit RecordingPlatform(CallLog& log);

    [[nodiscard]] CorvexMaterial::Platform Get();

    RecordingStore settings;
    RecordingPrompts prompts;
    RecordingChoosers choosers;
    RecordingProcesses processes;
    RecordingTemporaryFiles temporaryFiles;
    RecordingLibrary library;
    RecordingImageFormats imageFormats;
    RecordingLibraryFiles libraryFiles;
};

}  // namespace CorvexTest

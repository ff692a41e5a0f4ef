#pragma once

#include "CallLog.h"
#include <CorvexMaterial/Platform.h>

#include <deque>
#include <tuple>

namespace CorvexTest {

/// A settings store in memory. It logs "section/key", for writes with "=value".
class RecordingStore : public Recording<CorvexMaterial::SettingsStore> {
public:
    using Recording::Recording;

    std::optional<std::string> Read(const CorvexMaterial::SettingAddress& address) override;
    void Write(const CorvexMaterial::SettingAddress& address, const std::string& value) override;
    void Flush(const std::string& flushed) override { m_log.Enter("Store.Flush", flushed); }

    /// Without a log entry, for preparing and checking.
    void Put(const std::string& key, const std::string& value,
             const std::string& section = "Application");
    [[nodiscard]] std::optional<std::string> Get(const std::string& key,
                                                 const std::string& section = "Application") const;
    void PutTip(const std::string& key, const std::string& value) { Put(key, value, "Tips"); }
    [[nodiscard]] std::optional<std::string> GetTip(const std::string& key) const
    {
        return Get(key, "Tips");
    }
    [[nodiscard]] std::size_t Size() const { return m_values.size(); }

    std::string application = "Corvex";

private:
    using Address = std::tuple<std::string, std::string, std::string>;

    std::map<Address, std::string> m_values;
};

/// Message boxes that answer themselves.
class RecordingPrompts : public Recording<CorvexMaterial::Prompts> {
public:
    using Recording::Recording;

    void Show(const CorvexMaterial::Message& message) override;
    bool AskYesNo(const CorvexMaterial::Message& question) override;

    std::vector<CorvexMaterial::Message> shown;
    std::deque<bool> answers;  ///< No when empty
};

/// Choosers whose answers are set before; cancelled when none is left. A colour dialog that stays
/// open waits for the test.
class RecordingChoosers : public Recording<CorvexMaterial::Choosers> {
public:
    using Recording::Recording;

    std::optional<CorvexMaterial::Colour>
    ChooseColour(std::optional<CorvexMaterial::Colour> initial) override;
    std::optional<std::string> ChooseFile(const CorvexMaterial::FileRequest& request) override;
    std::unique_ptr<CorvexMaterial::OpenColourDialog>
    OpenColour(const CorvexMaterial::ColourRequest& request) override;
    /// The user's OK or Cancel.
    void Close();

    bool staysOpen = false;
    std::optional<CorvexMaterial::ColourRequest> open;
    std::deque<CorvexMaterial::Colour> colours;
    std::deque<std::string> files;
};

class RecordingProcesses : public Recording<CorvexMaterial::ProcessStarter> {
public:
    using Recording::Recording;

    std::unique_ptr<CorvexMaterial::Process>
    Start(const CorvexMaterial::ProcessRequest& request) override;

    int exitCode = 0;
    std::vector<CorvexMaterial::ProcessRequest> requests;
    /// Really starts what is asked for.
    CorvexMaterial::ProcessStarter* passOn = nullptr;
};

class RecordingTemporaryFiles : public Recording<CorvexMaterial::TemporaryFiles> {
public:
    using Recording::Recording;

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
    int m_next = 1;
};

class RecordingLibrary : public Recording<CorvexMaterial::ControlLibrary> {
public:
    using Recording::Recording;

    std::string Folder() override
    {
        return m_log.Answer<std::string>("ControlLibrary.Folder", "/control");
    }
};

class RecordingImageFormats : public Recording<CorvexMaterial::ImageFormats> {
public:
    using Recording::Recording;

    bool CanReadTiff() override { return m_log.Answer("ImageFormats.CanReadTiff", available); }
    bool CanWriteJpeg() override { return m_log.Answer("ImageFormats.CanWriteJpeg", available); }

    bool available = true;
};

/// Library files that are only names; by default the two of a fresh start are there.
class RecordingLibraryFiles : public Recording<CorvexMaterial::LibraryFiles> {
public:
    using Recording::Recording;

    bool Exists(const std::string& path) override
    {
        return m_log.Answer("LibraryFiles.Exists", paths.contains(path), path);
    }
    bool MakeWritable(const std::string& path) override
    {
        return m_log.Answer("LibraryFiles.MakeWritable", writable, path);
    }
    std::vector<std::string> NamesIn(const std::string& folder,
                                     const std::string& extension) override;

    std::set<std::string> paths{"/libraries/Gems.cvm", "/libraries/Gems.cvt"};
    bool writable = true;
};

/// A complete desktop in memory.
class RecordingPlatform {
public:
    explicit RecordingPlatform(CallLog& log) : m_log(log) {}

    [[nodiscard]] CorvexMaterial::Platform Get()
    {
        return {settings,       prompts, choosers,     processes,
                temporaryFiles, library, imageFormats, libraryFiles};
    }

private:
    CallLog& m_log;

public:
    RecordingStore settings{m_log};
    RecordingPrompts prompts{m_log};
    RecordingChoosers choosers{m_log};
    RecordingProcesses processes{m_log};
    RecordingTemporaryFiles temporaryFiles{m_log};
    RecordingLibrary library{m_log};
    RecordingImageFormats imageFormats{m_log};
    RecordingLibraryFiles libraryFiles{m_log};
};

}  // namespace CorvexTest

#pragma once

#include "CommandOutput.h"
#include "ProgramArguments.h"
#include "SceneReading.h"

namespace studio {

/// What a command tells that writes a scene for others: what that goes without, and the files.
class WritingOutput : public CommandOutput {
public:
    explicit WritingOutput(bool isJson) : CommandOutput(isJson) {}

    /// What a scene is read with: as for TellReading, and as JSON all of it.
    void Reading(const SceneReading& reading, const QString& file);
    /// What became of each property, as text only of those that were lost, and the counts.
    void Outcomes(const Report& report, std::size_t materials);
    /// The rest is told on standard error too. An image that is missing or cannot be read:
    void Unread(const QString& texture, const QString& text);
    void Loss(const QString& text);
    void Written(const QString& file);

    [[nodiscard]] bool HasLosses() const { return m_hasLosses; }

private:
    bool m_hasLosses = false;
};

/// Does the work and tells why it failed, if it did. With losses it has failed where the job is
/// strict.
template <typename Job, typename Work>
[[nodiscard]] ExitCode RunWriting(const Job& job, const Work& work)
{
    WritingOutput output(job.json);
    output.Telling([&] { work(job, output); });
    const bool isRefused = job.strict && output.HasLosses();
    return output.HasProblems() || isRefused ? ExitCode::Failed : ExitCode::Done;
}

}  // namespace studio

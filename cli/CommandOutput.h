#pragma once

#include "Tr.h"

#include <QElapsedTimer>
#include <QJsonObject>
#include <QStringList>

#include <new>

namespace studio {

/// What a command without a window tells: results on standard output, as text or as one JSON object
/// per line, problems and progress on standard error.
class CommandOutput {
public:
    explicit CommandOutput(bool isJson) : m_isJson(isJson) { m_sinceProgress.start(); }

    /// A standard output that cannot be written is a problem, told once.
    void Result(const QJsonObject& json, const QStringList& columns);
    /// The command goes on, but has failed in the end.
    void Problem(const QString& text);
    /// A thing to know, on standard error.
    static void Remark(const QString& text);
    /// At most once a second.
    void Progress(qsizetype done, qsizetype all);

    /// What the work throws is a problem.
    template <typename Work>
    void Telling(const Work& work)
    {
        try {
            work();
        } catch (const std::bad_alloc&) {
            Problem(Tr("There is not enough memory for it."));
        } catch (const std::exception& error) {
            Problem(QString::fromUtf8(error.what()));
        }
    }

    [[nodiscard]] bool IsJson() const { return m_isJson; }
    [[nodiscard]] bool HasProblems() const { return m_problems > 0; }

private:
    bool m_isJson;
    bool m_isLost = false;  ///< what is printed now
    int m_problems = 0;
    QElapsedTimer m_sinceProgress;
};

}  // namespace studio

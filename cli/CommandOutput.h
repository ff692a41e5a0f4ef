#pragma once

#include <QElapsedTimer>
#include <QJsonObject>
#include <QStringList>

namespace studio {

/// What a command without a window tells: results on standard output, as text or as one JSON object
/// per line, problems and progress on standard error.
class CommandOutput {
public:
    enum class Form { Text, Json };

    explicit CommandOutput(Form form) : m_form(form) { m_sinceProgress.start(); }

    /// A standard output that cannot be written is a problem, told once.
    void Result(const QJsonObject& json, const QStringList& columns);
    /// The command goes on, but has failed in the end.
    void Problem(const QString& text);
    /// A thing to know, on standard error.
    static void Remark(const QString& text);
    /// At most once a second.
    void Progress(qsizetype done, qsizetype all);

    [[nodiscard]] bool HasProblems() const { return m_problems > 0; }

private:
    Form m_form;
    bool m_isLost = false;  ///< what is printed now
    int m_problems = 0;
    QElapsedTimer m_sinceProgress;
};

}  // namespace studio

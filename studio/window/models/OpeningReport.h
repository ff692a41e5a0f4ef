#pragma once

#include "Report.h"

#include <QCoreApplication>

namespace studio {

class MaterialExchange;
class ScenePane;
class WindowMessages;

/// Tells what became of a file that was opened: on the status line, and in a box where something
/// was lost or textures are missing.
class OpeningReport {
    Q_DECLARE_TR_FUNCTIONS(OpeningReport)

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        WindowMessages& messages;
        ScenePane& scene;
        MaterialExchange& exchange;  ///< keeps the report
    };

    explicit OpeningReport(const Parts& parts) : m_parts(parts) {}

    /// The scene is there already. The note may be empty.
    void Tell(const QString& title, const Report& report, const QString& note = {});
    /// The same of what is told in sentences.
    void Tell(const QString& title, const QStringList& problems, const QString& note);

private:
    Parts m_parts;
};

}  // namespace studio

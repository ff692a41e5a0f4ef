#pragma once

#include "SavingBack.h"

#include <QObject>

#include <memory>
#include <optional>

class QAction;
class QMainWindow;
class QMenu;

namespace studio {

class MaterialExchange;
class ScenePane;
class WindowMessages;

/// Saves the materials of the scene back into the model's own file, as long as the scene is the one
/// that was opened from it.
class SourceSaving : public QObject {
    Q_OBJECT

public:
    /// What it works with; all of it outlives this object.
    struct Parts {
        WindowMessages& messages;
        ScenePane& scene;
        MaterialExchange& exchange;  ///< keeps the report
        QMainWindow& window;
    };

    explicit SourceSaving(const Parts& parts);

    void AddTo(QMenu& menu);
    /// The scene has the shapes of the model and nothing else.
    void Remember(const QString& file, const studio::ImportedModel& model);

private:
    [[nodiscard]] bool IsShown() const;
    void ShowName();
    void Save();
    [[nodiscard]] QString QuestionOf(const SourcePatch& patch) const;

    Parts m_parts;
    QAction* m_action = nullptr;
    std::optional<MaterialSource> m_source;
    std::vector<std::weak_ptr<StudioShape>> m_shapes;
};

}  // namespace studio

#pragma once

#include <QString>
#include <QStringList>

#include <variant>

namespace studio {

/// One `corvex scene` command.
struct SceneJob {
    QString command;
    QString file;
    QStringList
        operands;        ///< after the file: `key=value`, already checked, or a library and a name
    QString out;         ///< empty: the file itself
    QString model;       ///< in place of the one that the scene was made of
    QStringList shapes;  ///< names; * stands for anything
    QStringList materials;  ///< the same
    bool all = false;
    bool embedsTextures = false;
    bool json = false;
    bool strict = false;
};

/// Arguments after the word `scene`. A text says what is wrong with them.
[[nodiscard]] std::variant<SceneJob, QString> ReadSceneCommand(const QStringList& arguments);

/// For --help.
[[nodiscard]] const char* SceneHelp();

}  // namespace studio

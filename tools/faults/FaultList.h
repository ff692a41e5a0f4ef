#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace faults {

/// A line that is put wrong in one place, and the suites that are likely to tell:
/// "browser" or, to be quicker, some of its cases: "studio:Library*".
struct Fault {
    int number = 0;
    QString file;
    QStringList suites;
    QString stands;
    QString instead;

    /// The folder of the product that it is in; of the engine the one below that.
    [[nodiscard]] QString Building() const;
};

/// faults.txt of a tree; its first lines tell how it is written.
/// @throws std::runtime_error where it is written otherwise
std::vector<Fault> ReadFaults(const QString& tree);

/// What is wrong with the list: a place that is not there exactly once.
QStringList ProblemsOf(const std::vector<Fault>& faults, const QString& tree);

/// Copies the tree with all faults in it; the variable CORVEX_FAULT chooses one by its number when
/// a program starts. What the copy has already is left as it is, so that it need not be built
/// again.
void Seed(const std::vector<Fault>& faults, const QString& tree, const QString& copy);

}  // namespace faults

#pragma once

#include "Testing.h"

namespace CorvexTest {

/// What became of a program.
struct Outcome {
    int exitCode = -1;  ///< that when it crashed or did not end
    QString output;
    QString errors;
};

inline Outcome RunProgram(
    const QString& program, const QStringList& arguments,
    const std::function<void(QProcess&)>& prepare = [](QProcess&) {})
{
    QProcess process;
    prepare(process);
    process.start(program, arguments);
    const bool ended = process.waitForFinished(240000);
    return {ended && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

}  // namespace CorvexTest

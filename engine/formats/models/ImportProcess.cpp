#include "ImportProcess.h"

#include "FileWriting.h"
#include "Formats.h"
#include "ModelPacking.h"
#include "ProcessLimits.h"
#include <CorvexMaterial/Status.h>

#include <iostream>
#include <span>
#include <string_view>

namespace studio {

namespace {

int EndWith(ImportExit code, const char* reason)
{
    std::cerr << reason << std::flush;
    return static_cast<int>(code);
}

QByteArray AnswerOf(const std::string& path, Wanted wanted)
{
    if (wanted == Wanted::Model) {
        return PackModel(ReadModel(path));
    }
    ImportedModel model = ReadForeignFile(path);
    model.meshes.clear();
    model.shapes.clear();
    return PackModel(model);
}

int Import(const std::string& path, const std::string& outputPath, Wanted wanted)
{
    const QByteArray packed = AnswerOf(path, wanted);
    try {
        CorvexMaterial::WriteFile(outputPath, packed, CorvexMaterial::Lifetime::Temporary);
        return static_cast<int>(ImportExit::Done);
    } catch (const CorvexMaterial::Error& error) {
        return EndWith(ImportExit::NoOutput, error.what());
    }
}

int RunContained(std::span<char* const> arguments, Wanted wanted)
{
    if (arguments.size() != 2) {
        return EndWith(ImportExit::Misused, "a file to read and an output file are needed");
    }
    CorvexMaterial::ContainThisProcess();
    LimitTime();
    try {
        return Import(arguments[0], arguments[1], wanted);
    } catch (const CorvexMaterial::Error& error) {
        return EndWith(error.Code() == CorvexMaterial::Status::OutOfMemory ? ImportExit::OutOfMemory
                                                                           : ImportExit::Refused,
                       error.what());
    } catch (const std::bad_alloc&) {
        return EndWith(ImportExit::OutOfMemory, "");
    } catch (const std::exception& error) {
        return EndWith(ImportExit::Refused, error.what());
    }
}

}  // namespace

const char* ArgumentFor(Wanted wanted)
{
    return wanted == Wanted::Model ? "--import-model" : "--import-materials";
}

std::optional<int> RunImportIfAsked(int argc, char** argv)
{
    const std::span<char* const> arguments(argv, static_cast<std::size_t>(argc));
    for (const Wanted wanted : {Wanted::Model, Wanted::Materials}) {
        if (arguments.size() > 1 && std::string_view(arguments[1]) == ArgumentFor(wanted)) {
            return RunContained(arguments.subspan(2), wanted);
        }
    }
    return std::nullopt;
}

}  // namespace studio

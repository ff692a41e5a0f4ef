#include "studio/import/ImportProcess.h"

#include "host/Status.h"
#include "platform/FileWriting.h"
#include "studio/import/ModelFile.h"
#include "studio/interchange/ImportAllowance.h"
#include "studio/interchange/assimp/AssimpReader.h"

#include <csignal>
#include <iostream>
#include <vector>

#include <sys/prctl.h>
#include <sys/resource.h>

namespace studio {

namespace {

struct ProcessLimit {
    __rlimit_resource resource;
    rlim_t most;
};

constexpr rlim_t kGigabyte = rlim_t{1} << 30;

constexpr ProcessLimit kLimits[] = {
    {RLIMIT_CORE, 0},
    {RLIMIT_FSIZE, 2 * kGigabyte},
#ifndef CORVEX_SANITIZED  // its shadow memory alone is larger than any sensible limit
    {RLIMIT_AS, 4 * kGigabyte},
#endif
};

void LimitThisProcess()
{
    for (const auto& [resource, most] : kLimits) {
        const rlimit limit{most, most};
        setrlimit(resource, &limit);
    }
    LimitTime();
    prctl(PR_SET_DUMPABLE, 0);
    prctl(PR_SET_PDEATHSIG, SIGKILL);
}

int EndWith(ImportExit code, const char* reason)
{
    std::cerr << reason << std::flush;
    return static_cast<int>(code);
}

int Import(const ContainedWork& work, const std::string& path, const std::string& outputPath)
{
    const QByteArray packed = work(path);
    try {
        CorvexMaterial::WriteFile(outputPath, packed, CorvexMaterial::Lifetime::Temporary);
        return static_cast<int>(ImportExit::Done);
    } catch (const CorvexMaterial::Error& error) {
        return EndWith(ImportExit::NoOutput, error.what());
    }
}

}  // namespace

int RunContained(std::span<const std::string> arguments, const ContainedWork& work)
{
    if (arguments.size() != 2) {
        return EndWith(ImportExit::Misused, "a file to read and an output file are needed");
    }
    LimitThisProcess();
    try {
        return Import(work, arguments[0], arguments[1]);
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

int RunModelImport(std::span<const std::string> arguments)
{
    return RunContained(arguments,
                        [](const std::string& path) { return PackModel(ReadModelFile(path)); });
}

std::optional<int> RunModelImportIfAsked(int argc, char** argv)
{
    if (argc < 2 || std::string_view(argv[1]) != kImportArgument) {
        return std::nullopt;
    }
    const std::vector<std::string> arguments(argv + 2, argv + argc);
    return RunModelImport(arguments);
}

}  // namespace studio

#include "RenderManJob.h"

namespace CorvexMaterial {

CorvexDB::CommandLine RenderManCommandLine(const RenderTask& task)
{
    const std::string width = std::to_string(task.size.width);
    const std::string height = std::to_string(task.size.height);
    return {task.program + " -res " + width + " " + height + " " + task.exported,
            task.program,
            {"-res", width, height, task.exported},
            {}};
}

RenderStart RenderManStart(const RenderTask& task, CorvexDB::ApplicationState& /*state*/)
{
    return {RenderManCommandLine(task), {}, {}};
}

}  // namespace CorvexMaterial

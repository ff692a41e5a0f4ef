#pragma once

#include "host/CorvexDB.h"
#include "tests/support/CallLog.h"

#include <utility>
#include <vector>

namespace CorvexTest {

class RecordingPlugin : public CorvexDB::Plugin {
public:
    RecordingPlugin(CallLog& log, std::vector<CorvexDB::PluginParameter> parameters)
        : m_log(log), m_parameters(std::move(parameters))
    {
    }

    std::vector<CorvexDB::PluginParameter> GetParameters() override
    {
        m_log.Enter("Plugin.GetParameters");
        return m_parameters;
    }

private:
    CallLog& m_log;
    std::vector<CorvexDB::PluginParameter> m_parameters;
};

}  // namespace CorvexTest

#include "CallLog.h"

#include <CorvexMaterial/Status.h>

#include <new>

namespace CorvexTest {

void Throw(Fault fault, std::string_view where)
{
    const std::string text = "planned failure in " + std::string(where);
    switch (fault) {
    case Fault::ClassifiedError:
        throw CorvexMaterial::Error(CorvexMaterial::Status::FileFailed, text);
    case Fault::OutOfMemory:
        throw std::bad_alloc();
    case Fault::StandardException:
        throw std::runtime_error(text);
    case Fault::UnknownObject:
        break;
    }
    throw 42;
}

void CallLog::Enter(std::string_view name, std::string detail)
{
    const std::size_t number = m_entered++;
    m_calls.push_back({std::string(name), std::move(detail)});
    if (m_failingCall == number || m_failingName == name) {
        m_failedCall = std::string(name);
        Throw(m_fault, name);
    }
}

void CallLog::Note(std::string_view name)
{
    m_calls.push_back({std::string(name), {}});
}

void CallLog::FailCall(std::size_t number, Fault fault)
{
    m_failingCall = m_entered + number;
    m_fault = fault;
    m_failedCall.reset();
}

void CallLog::FailEach(std::string name, Fault fault)
{
    m_failingName = std::move(name);
    m_fault = fault;
    m_failedCall.reset();
}

void CallLog::Clear()
{
    *this = CallLog();
}

std::size_t CallLog::CountOf(std::string_view name) const
{
    const auto matches = [name](const Call& call) { return call.name == name; };
    return static_cast<std::size_t>(std::ranges::count_if(m_calls, matches));
}

std::vector<std::string> CallLog::DetailsOf(std::string_view name) const
{
    std::vector<std::string> details;
    for (const Call& call : m_calls) {
        if (call.name == name) {
            details.push_back(call.detail);
        }
    }
    return details;
}

std::vector<std::string> CallLog::Order(const std::vector<std::string>& names) const
{
    std::vector<std::string> order;
    for (const Call& call : m_calls) {
        if (names.empty() || std::ranges::find(names, call.name) != names.end()) {
            order.push_back(call.name);
        }
    }
    return order;
}

}  // namespace CorvexTest

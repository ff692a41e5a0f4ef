#pragma once

#include "Testing.h"
#include <cstddef>
#include <string_view>

namespace CorvexTest {

using Texts = std::vector<std::string>;

/// What a failing host or platform call throws.
enum class Fault { ClassifiedError, OutOfMemory, StandardException, UnknownObject };

inline constexpr Fault kFaults[] = {Fault::ClassifiedError, Fault::OutOfMemory,
                                    Fault::StandardException, Fault::UnknownObject};

[[noreturn]] void Throw(Fault fault, std::string_view where);

struct Call {
    std::string name;    ///< "Interface.Operation"
    std::string detail;  ///< the arguments that matter, may be empty

    bool operator==(const Call&) const = default;
};

/// Every call that leaves the control, host and platform alike, in the order in which it arrived.
class CallLog {
public:
    /// Each fake operation begins with this; it throws when the call is planned to fail.
    void Enter(std::string_view name, std::string detail = {});
    /// For an operation that only answers.
    template <typename Value>
    Value Answer(std::string_view name, Value value, std::string detail = {})
    {
        Enter(name, std::move(detail));
        return value;
    }
    /// Something to see in its order that is no call, and so never fails.
    void Note(std::string_view name);
    /// Makes one call fail: the n-th from now, counted from 0.
    void FailCall(std::size_t number, Fault fault);
    /// Makes every call of this name fail until the log is cleared.
    void FailEach(std::string name, Fault fault);
    /// Forgets calls and planned failures.
    void Clear();

    [[nodiscard]] const std::vector<Call>& Calls() const { return m_calls; }
    /// Calls alone, notes left out.
    [[nodiscard]] std::size_t Entered() const { return m_entered; }
    /// Whether a planned failure has happened.
    [[nodiscard]] bool Failed() const { return m_failedCall.has_value(); }
    /// Name of the call that failed last.
    [[nodiscard]] const std::optional<std::string>& FailedCall() const { return m_failedCall; }
    [[nodiscard]] std::size_t CountOf(std::string_view name) const;
    /// Details of the calls of one name, in order.
    [[nodiscard]] std::vector<std::string> DetailsOf(std::string_view name) const;
    /// Names alone, in order; only those listed when the list is not empty.
    [[nodiscard]] std::vector<std::string> Order(const std::vector<std::string>& names = {}) const;

private:
    std::vector<Call> m_calls;
    std::size_t m_entered = 0;
    std::optional<std::size_t> m_failingCall;
    std::optional<std::string> m_failingName;
    Fault m_fault = Fault::StandardException;
    std::optional<std::string> m_failedCall;
};

/// What each fake of an interface begins with.
template <typename Interface>
class Recording : public Interface {
public:
    explicit Recording(CallLog& log) : m_log(log) {}

protected:
    CallLog& m_log;
};

}  // namespace CorvexTest

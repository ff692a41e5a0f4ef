#pragma once

#include <cstdint>

namespace studio {

inline constexpr int kTookTooLong = 24;

/// From now on this process may work for so long as the files that it reads deserve: some seconds,
/// and a second more for each megabyte. Beyond that it ends with kTookTooLong and says so on
/// standard error. Processor time counts, for another's load is no fault of a file.
void LimitTime();

/// A further file is read. Nothing in a process without the limit.
void AllowTimeFor(std::int64_t bytes);

}  // namespace studio

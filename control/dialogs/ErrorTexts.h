#pragma once

#include <CorvexMaterial/ErrorReport.h>

#include <string>
#include <string_view>

namespace CorvexMaterial {

/// Title of the box for an error of the program; every other box has the product's name.
inline constexpr std::string_view kErrorBoxTitle = "Internal Error";
inline constexpr std::string_view kBoxTitle = "Corvex";

/// Asked after an unrecoverable error.
inline constexpr std::string_view kInternetQuestion =
    "Would you like to connect to the Internet for more information on this error?";

/// The error is not the user's input, a file or memory; help on it is offered.
[[nodiscard]] bool IsUnrecoverable(const ErrorReport& report);

/// A file, a disk or a text of his that the user can do something about: told in plain words, with
/// the text of the error box as details.
[[nodiscard]] bool IsForUser(const ErrorReport& report);

/// The text of the error box.
[[nodiscard]] std::string ErrorBoxText(const ErrorReport& report);

/// The line for the host's debug trace.
[[nodiscard]] std::string DebugDataText(const ErrorReport& report);

}  // namespace CorvexMaterial

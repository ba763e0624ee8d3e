#pragma once

#include <stdexcept>
#include <string>
#include <system_error>

namespace quillset {

/// Numbers of the failures that users may see; stable, since people search for them.
enum class ErrorNumber : int {
    invalidCall = 5,
    overflow = 6,
    outOfMemory = 7,
    subscriptOutOfRange = 9,
    typeMismatch = 13,
    internalError = 51,
    fileNotFound = 53,
    deviceError = 57,
    fileExists = 58,
    diskFull = 61,
    permissionDenied = 70,
    pathAccess = 75,
    pathNotFound = 76,
    objectNotSet = 91,
    elementNotFound = 35601,
    keyNotUnique = 35602,
};

/// A failure with the number and the description that the error report shows.
class RuntimeError : public std::runtime_error {
public:
    /// With the usual description of that number.
    explicit RuntimeError(ErrorNumber number);
    RuntimeError(ErrorNumber number, const std::string& description);

    [[nodiscard]] int number() const noexcept { return number_; }

private:
    int number_;
};

/// The failure of an operation on a file; the description names the path when one is given.
[[nodiscard]] RuntimeError fileError(const std::error_code& code, const std::string& path = {});

} // namespace quillset

#include "base/runtime_error.h"

namespace quillset {

namespace {

const char* usualDescription(ErrorNumber number) {
    switch (number) {
    case ErrorNumber::invalidCall:
        return "Invalid procedure call or argument";
    case ErrorNumber::overflow:
        return "Overflow";
    case ErrorNumber::outOfMemory:
        return "Out of memory";
    case ErrorNumber::subscriptOutOfRange:
        return "Subscript out of range";
    case ErrorNumber::typeMismatch:
        return "Type mismatch";
    case ErrorNumber::internalError:
        return "Internal error";
    case ErrorNumber::fileNotFound:
        return "File not found";
    case ErrorNumber::deviceError:
        return "Device I/O error";
    case ErrorNumber::fileExists:
        return "File already exists";
    case ErrorNumber::diskFull:
        return "Disk full";
    case ErrorNumber::permissionDenied:
        return "Permission denied";
    case ErrorNumber::pathAccess:
        return "Path/File access error";
    case ErrorNumber::pathNotFound:
        return "Path not found";
    case ErrorNumber::objectNotSet:
        return "Object variable or With block variable not set";
    case ErrorNumber::elementNotFound:
        return "Element not found";
    case ErrorNumber::keyNotUnique:
        return "Key is not unique in collection";
    }
    return "Internal error";
}

ErrorNumber numberOf(const std::error_code& code) {
    const std::error_condition condition = code.default_error_condition();
    if (condition == std::errc::no_such_file_or_directory)
        return ErrorNumber::fileNotFound;
    if (condition == std::errc::not_a_directory)
        return ErrorNumber::pathNotFound;
    if (condition == std::errc::no_space_on_device || condition == std::errc::file_too_large)
        return ErrorNumber::diskFull;
    if (condition == std::errc::permission_denied || condition == std::errc::operation_not_permitted ||
        condition == std::errc::read_only_file_system)
        return ErrorNumber::permissionDenied;
    if (condition == std::errc::file_exists)
        return ErrorNumber::fileExists;
    if (condition == std::errc::not_enough_memory)
        return ErrorNumber::outOfMemory;
    if (condition == std::errc::io_error)
        return ErrorNumber::deviceError;
    return ErrorNumber::pathAccess;
}

} // namespace

RuntimeError::RuntimeError(ErrorNumber number)
    : RuntimeError(number, usualDescription(number)) {}

RuntimeError::RuntimeError(ErrorNumber number, const std::string& description)
    : std::runtime_error(description)
    , number_(static_cast<int>(number)) {}

RuntimeError fileError(const std::error_code& code, const std::string& path) {
    const ErrorNumber number = numberOf(code);
    const std::string description = usualDescription(number);
    return RuntimeError(number, path.empty() ? description : description + ": " + path);
}

} // namespace quillset

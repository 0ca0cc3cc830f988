#include "Exceptions.h"

#include "CallStack.h"

#include <cstring>

namespace folimark {

std::string ClassNameOf(const std::type_info& type) {
    std::string name = Demangled(type.name());
    const std::string::size_type colons = name.rfind("::");
    return colons == std::string::npos ? name : name.substr(colons + 2);
}

RuntimeException::RuntimeException(std::string message) : message_(std::move(message)), stack_(CallStack()) {}

NilObjectException::NilObjectException(const std::string& expected)
    : RuntimeException("No " + expected + " is there.") {}

IOException::IOException(const std::string& what, const std::string& path, int errorNumber)
    : RuntimeException(what + " “" + path + "”: " + std::strerror(errorNumber) + ".") {}

IOException IOException::OfSaving(const std::string& path, int errorNumber) {
    IOException error("Can't save", path, errorNumber);
    error.isOfSaving_ = true;
    return error;
}

ForeignException::ForeignException(const std::exception& foreign)
    : RuntimeException(foreign.what()), name_(ClassNameOf(typeid(foreign))) {}

} // namespace folimark

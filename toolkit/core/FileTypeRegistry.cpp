#include "FileTypeRegistry.h"

#include "Text.h"

#include <unordered_map>

namespace folimark {
namespace {

/// Type names by their extensions, which are folded and have their dots.
std::unordered_map<std::string, std::string>& TypeNames() {
    static std::unordered_map<std::string, std::string> names;
    return names;
}

} // namespace

void RegisterFileType(std::string_view name, std::string_view /*creator*/, std::string_view /*typeCode*/,
                      std::string_view extensions, std::string_view /*uti*/) {
    const std::int64_t count = CountFields(extensions, ";");
    for (std::int64_t i = 1; i <= count; ++i) {
        TypeNames().try_emplace(FoldCase(NthField(extensions, ";", i)), name);
    }
}

std::string FileTypeOf(std::string_view fileName) {
    const std::size_t dot = fileName.rfind('.');
    if (dot == std::string_view::npos || dot == 0) {
        return "";
    }
    const auto found = TypeNames().find(FoldCase(fileName.substr(dot)));
    return found == TypeNames().end() ? "" : found->second;
}

void ForgetFileTypes() {
    TypeNames().clear();
}

} // namespace folimark

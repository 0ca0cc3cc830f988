#include "FileTypeRegistry.h"

#include "Text.h"

namespace folimark {
namespace {

std::shared_ptr<const ExtensionTable>& Known() {
    static std::shared_ptr<const ExtensionTable> table = std::make_shared<const ExtensionTable>();
    return table;
}

} // namespace

const std::string* ExtensionTable::Find(std::string_view fileName) const {
    const std::size_t dot = fileName.rfind('.');
    if (dot == std::string_view::npos || dot == 0) {
        return nullptr;
    }
    const auto found = types_.find(FoldForSearch(fileName.substr(dot)));
    return found == types_.end() ? nullptr : &found->second;
}

void ExtensionTable::Add(std::string_view extension, std::string_view typeName) {
    types_.try_emplace(FoldForSearch(extension), typeName);
}

void RegisterFileType(std::string_view name, std::string_view /*creator*/, std::string_view /*typeCode*/,
                      std::string_view extensions, std::string_view /*uti*/) {
    ExtensionTable table = *Known();
    const std::int64_t count = CountFields(extensions, ";");
    for (std::int64_t i = 1; i <= count; ++i) {
        table.Add(NthField(extensions, ";", i), name);
    }
    Known() = std::make_shared<const ExtensionTable>(std::move(table));
}

std::shared_ptr<const ExtensionTable> KnownExtensions() {
    return Known();
}

std::string FileTypeOf(std::string_view fileName) {
    const std::string* const type = Known()->Find(fileName);
    return type == nullptr ? "" : *type;
}

void ForgetFileTypes() {
    Known() = std::make_shared<const ExtensionTable>();
}

} // namespace folimark

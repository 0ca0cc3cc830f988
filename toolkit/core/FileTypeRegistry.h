#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

namespace folimark {

/// Makes a type of files known, under the name that FolderItem::Type will give. The extensions stand with
/// their dots, separated by ";" (".jpg;.jpeg"). Here a file's type depends on its extension alone; the
/// creator and type code (four characters each) and the uniform type identifier belong to platforms whose
/// file systems keep them. Where two rows share an extension the one that was registered first has it.
void RegisterFileType(std::string_view name, std::string_view creator, std::string_view typeCode,
                      std::string_view extensions, std::string_view uti);

/// The name of the type that a file of this name has, by what follows its last dot, letter case ignored; ""
/// if no row has that extension. A dot at the very start only hides the file.
std::string FileTypeOf(std::string_view fileName);

/// The types by their extensions.
class ExtensionTable {
  public:
    /// What FileTypeOf gives; null for "".
    const std::string* Find(std::string_view fileName) const;
    /// Unless the extension, which has its dot, is there already.
    void Add(std::string_view extension, std::string_view typeName);

  private:
    std::unordered_map<std::string, std::string> types_;
};

/// What is registered by now. The table itself doesn't change any more, so threads may share it.
std::shared_ptr<const ExtensionTable> KnownExtensions();

/// Empties the registry.
void ForgetFileTypes();

} // namespace folimark

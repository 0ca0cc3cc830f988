#include "FileType.h"

#include "FileTypeRegistry.h"

namespace folimark {

void FileType::Register() {
    if (!mRegistered) {
        mRegistered = true;
        RegisterFileType(Name, MacCreator, MacType, Extensions, UTI);
    }
}

FileType::operator std::string() {
    Register();
    return Name;
}

} // namespace folimark

#pragma once

#include "Object.h"

#include <string>

namespace folimark {

/// One row of the table of file types. All fields are set at start and never changed afterwards.
class FileType : public Object {
  public:
    /// The type's name of the form group/subtype, from the application's own vocabulary.
    std::string Name;
    /// File name extensions with their dots, separated by ";".
    std::string Extensions;
    /// Codes of the classic file system, of four characters as a rule; "????" for none.
    std::string MacType;
    std::string MacCreator;
    /// The MIME type, and the identifiers of the more general types; "" in every row.
    std::string MimeType;
    std::string ConformsTo;
    /// The uniform type identifier, or "".
    std::string UTI;
    /// True for a type that others have defined, False for one of the application's own.
    bool Imported = false;

    /// Makes FolderItem::Type know the row. A second call does nothing.
    void Register();
    /// The type's name; registers the row if it isn't yet registered.
    explicit operator std::string();

  private:
    bool mRegistered = false;
};

} // namespace folimark

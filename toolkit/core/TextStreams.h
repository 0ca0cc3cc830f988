#pragma once

#include "FolderItem.h"
#include "Object.h"

#include <cstddef>
#include <cstdio> // so that no later include brings the macro EOF back
#include <string>
#include <string_view>

// The vocabulary of streams has a member of this name. Code that needs the macro can't include this header.
#undef EOF

namespace folimark {

/// Reads the lines of a text file. A line ends at LF, CR LF or CR; a last line needs no end.
class TextInputStream : public Object {
  public:
    /// Reads the whole file at once, so that it is whole or not there at all. Raises IOException if it can't
    /// be opened or read to its end, or isn't a regular file.
    static Ref<TextInputStream> Open(const Ref<FolderItem>& file);

    /// True once all lines have been read, and after Close.
    bool EOF() const { return position_ == text_.size(); }
    /// The next line without its end, its bytes unchanged: no encoding is the only one. "" at the file's end.
    std::string ReadLine(std::nullptr_t encoding = nullptr);
    void Close();

  private:
    explicit TextInputStream(std::string text) : text_(std::move(text)) {}

    std::string text_;
    std::size_t position_ = 0;
};

/// Writes a text file as a whole. The file is replaced at Close; a stream that is never closed, or fails,
/// leaves the old one as it was.
class TextOutputStream : public Object {
  public:
    /// `file` need not exist, nor the folders above it.
    static Ref<TextOutputStream> Create(const Ref<FolderItem>& file);

    /// Removes what streams into this file have left beside it when their process was ended in the middle of
    /// a Close. Nobody may be writing it.
    static void RemoveLeftovers(const Ref<FolderItem>& file);

    /// Adds the text and a line end. Raises IOException after Close: the line could not be saved any more.
    void WriteLine(std::string_view text);

    /// Writes a new file beside the old one, brings it to the disk, and gives it the old one's name and
    /// permissions (a new file is its owner's alone). Through a symbolic link it replaces what the link leads
    /// to. Raises IOException if any of this fails. Closing again does nothing, also if it has failed.
    void Close();

  private:
    explicit TextOutputStream(std::string path) : path_(std::move(path)) {}

    std::string path_; // native
    std::string text_;
    bool closed_ = false;
};

} // namespace folimark

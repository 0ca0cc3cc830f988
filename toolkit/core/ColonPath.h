#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace folimark {

// The colon form of a path: "Computer:home:user:photo.jpg", a folder's with a final ":". The first field is
// the one volume's name. It is a bijection with the bytes that the file system holds, for every possible
// name, and always one line of valid UTF-8:
//
// - ":" in a name stands as "/", which no name can hold.
// - Control characters (C0, DEL, C1) and bytes that are no UTF-8 stand byte by byte as the private-use
//   characters U+EF00 plus the byte.
// - The bytes of a character of U+EF00 to U+EFFF that a name really holds stand the same way.

/// The name of the volume that the whole tree is.
inline constexpr std::string_view kVolumeName = "Computer";

/// A file's name (bytes) as a field of a colon path.
std::string FieldOfName(std::string_view name);

/// The bytes of the name that a field stands for; none if no file can have it: "", ".", "..", or a NUL or "/"
/// in it.
std::optional<std::string> NameOfField(std::string_view field);

/// Fields of a colon path, or what has been made of them, as people are to read them: with ":" where a name
/// has it.
std::string ReadableNames(std::string fields);

/// An absolute native path ("" or "/" is the root) in the colon form of a folder, with its final ":".
std::string ColonPathOfFolder(std::string_view nativePath);

/// The native path ("" is the root) of a colon path, with or without a final ":"; none if it can't be a path
/// of this system.
std::optional<std::string> NativePathOf(std::string_view colonPath);

} // namespace folimark

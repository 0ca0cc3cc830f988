#pragma once

#include <string>

/// The lists of media types, and the checks that go by them. They belong to the application's globals.
namespace folimark::GlobalData {

inline std::string AudioString;
inline std::string BookString;
inline std::string ImageString;
inline std::string VideoString;
/// The four above.
inline std::string MediaString;

/// Builds the five strings. Until then all checks say False.
void SetupFileTypeStrings();

// Each check is given a type name as FolderItem::Type gives it, and tells whether the name occurs in the
// string of its kind, letter case ignored. A file of no known type has the name "", which is no media.
bool CheckMediaFileType(const std::string& type);
bool CheckImageFileType(const std::string& type);
bool CheckVideoFileType(const std::string& type);
bool CheckAudioFileType(const std::string& type);
bool CheckPDFFileType(const std::string& type);

} // namespace folimark::GlobalData

#pragma once

#include <cstdint>
#include <string>

/// Makes a tree of small files, unless it is there already: eight in ten are media, a hundred lie in each
/// folder, and some names have accents. \returns its folder.
std::string MakeTree(const std::string& folder, std::int64_t files);

/// Media files of such a tree.
std::int64_t MediaIn(std::int64_t files);

/// What nobody can do without: a walk of one thread, with one status call, birth time included, a file.
/// \returns the number of files.
std::int64_t WalkBare(const std::string& folder);

#pragma once

#include <span>
#include <string>

namespace folimark::test {

/// A thing that a picture process must not be able to do, whatever has taken it over.
struct Escape {
    const char* name;
    /// Tries it, with a file that the user may read and write; -1 with errno set if it didn't work.
    long (*attempt)(const std::string& path);
    /// The version of Landlock's interface from which on it is held without the filter of calls; 0 if it
    /// isn't.
    int heldByLandlock = 0;
    bool heldByCalls = true;
};

std::span<const Escape> Escapes();

/// The name of a call that reading pictures may take and that is refused; "" if there is none.
std::string MissingCall();

} // namespace folimark::test

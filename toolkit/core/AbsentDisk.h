#pragma once

#include <string>

namespace folimark {

/// Could a folder that isn't there, or has nothing in it, lie on a disk that is away just now (unplugged,
/// locked, not mounted)? `nativePath` is absolute. That is so where
///
/// - the folder that should hold it is gone too: desktops remove the folder of a disk with the disk;
/// - desktops, or the table of file systems, mount a disk at this place, or at the folder that should hold
///   it, and none is there;
/// - the folder that should hold it is empty, and has been since it was made;
/// - the path ends in a link that leads nowhere.
///
/// Of anything else it can be said that it is gone.
bool MayLieOnAnAbsentDisk(const std::string& nativePath);

} // namespace folimark

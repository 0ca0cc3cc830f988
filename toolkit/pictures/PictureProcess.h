#pragma once

#include "PictureReader.h"

#include <string>

namespace folimark {

/// Reads an image or a PDF file's first page in a process of its own, which is started at the first call and
/// again when it has died; a decoder that crashes takes nothing else with it.
///
/// Gives no picture if the file can't be read, or opening and reading it take more than five seconds or more
/// than 1.5 GiB, and never waits longer, whatever the file lies on. Waits for the answer; the caller's thread
/// is the only one that may use the picture process.
PictureReading ReadPicture(const PictureQuestion& question);

/// Ends the picture process, if it runs. Pictures that were read stay valid.
void EndPictureProcess();

/// The path of the executable to start, from the next start on. By default it is `folimark-pictures`, in the
/// folder of this program's own executable. "" stands for that default.
void SetPictureProcessExecutable(std::string path);
/// What was set last.
const std::string& PictureProcessExecutable();

} // namespace folimark

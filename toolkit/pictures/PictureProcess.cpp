#include "PictureProcess.h"

#include <utility>

namespace folimark {
namespace {

PictureReader& TheReader() {
    static PictureReader reader;
    return reader;
}

std::string& Executable() {
    static std::string path;
    return path;
}

} // namespace

PictureReading ReadPicture(const PictureQuestion& question) {
    return TheReader().Read(question);
}

void EndPictureProcess() {
    TheReader().End();
}

void SetPictureProcessExecutable(std::string path) {
    TheReader().SetExecutable(path);
    Executable() = std::move(path);
}

const std::string& PictureProcessExecutable() {
    return Executable();
}

} // namespace folimark

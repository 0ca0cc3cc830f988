#include "PictureProcess.h"

#include "PictureReader.h"

#include <utility>

namespace folimark {
namespace {

PictureRefusal lastRefusal = PictureRefusal::None;

PictureReader& TheReader() {
    static PictureReader reader;
    return reader;
}

std::string& Executable() {
    static std::string path;
    return path;
}

} // namespace

std::optional<DecodedPicture> ReadPicture(const std::string& path, std::string_view type, int wantedWidth,
                                          int wantedHeight) {
    PictureReading reading = TheReader().Read({path, std::string(type), wantedWidth, wantedHeight});
    lastRefusal = reading.refusal;
    return std::move(reading.picture);
}

PictureRefusal LastRefusal() {
    return lastRefusal;
}

bool PictureProcessIsBroken() {
    return TheReader().IsBroken();
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

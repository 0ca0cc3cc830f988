// read-pictures FOLDER [COPIES]
//
// Reads every picture and PDF file below a folder through the picture process, as the preview does, and
// prints a line for each: type, outcome, milliseconds, own size, path. The outcome is "shown", "refused", or
// "one colour" if a single colour covers all of it, which is right for few pictures. With a folder for
// copies, what was shown is written there as PAM files of the same names, to be looked at beside what other
// programs make of it. The last lines count by type.

#include "FileTypeRegistry.h"
#include "FileTypes.h"
#include "PictureProcess.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace {

using namespace folimark;
using Path = std::filesystem::path;

constexpr int kRoom = 300; // points, the preview's own

struct Counts {
    std::map<std::string, int> outcomes;
    double slowest = 0; // milliseconds
};

std::span<const std::uint32_t> PixelsOf(const DecodedPicture& picture) {
    return {picture.pixels.get(), std::size_t(picture.width) * std::size_t(picture.height)};
}

std::string OutcomeOf(const std::optional<DecodedPicture>& picture) {
    if (!picture) {
        return "refused";
    }
    const auto pixels = PixelsOf(*picture);
    const bool isPlain = std::ranges::all_of(pixels, [&](std::uint32_t pixel) { return pixel == pixels[0]; });
    return isPlain ? "one colour" : "shown";
}

/// The format is described in pam(5): here 8-bit red, green, blue and opacity.
void Save(const DecodedPicture& picture, const Path& path) {
    std::ofstream file(path, std::ios::binary);
    file << "P7\nWIDTH " << picture.width << "\nHEIGHT " << picture.height
         << "\nDEPTH 4\nMAXVAL 255\nTUPLTYPE RGB_ALPHA\nENDHDR\n";
    for (const std::uint32_t pixel : PixelsOf(picture)) {
        const std::uint32_t alpha = pixel >> 24;
        for (const int shift : {16, 8, 0}) { // premultiplied there, plain here
            file.put(static_cast<char>(alpha == 0 ? 0 : (pixel >> shift & 255) * 255 / alpha));
        }
        file.put(static_cast<char>(alpha));
    }
}

std::vector<Path> FilesBelow(const Path& folder) {
    std::vector<Path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path());
        }
    }
    std::ranges::sort(files);
    return files;
}

} // namespace

int main(int count, char** arguments) {
    if (count < 2) {
        std::cerr << "usage: read-pictures FOLDER [COPIES]\n";
        return EXIT_FAILURE;
    }
    const Path folder = arguments[1];
    FileTypes::_Initialize();
    std::map<std::string, Counts> types;
    for (const Path& file : FilesBelow(folder)) {
        const std::string type = FileTypeOf(file.filename().string());
        if (!type.starts_with("image/") && type != "book/pdf") {
            continue;
        }
        const auto start = std::chrono::steady_clock::now();
        const std::optional<DecodedPicture> picture =
            ReadPicture({file.string(), type, kRoom, kRoom}).picture;
        const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
        const std::string outcome = OutcomeOf(picture);
        std::printf("%-17s %-10s %7.1f %6dx%-6d %s\n", type.c_str(), outcome.c_str(), time.count(),
                    picture ? picture->pictureWidth : 0, picture ? picture->pictureHeight : 0,
                    file.lexically_relative(folder).c_str());
        Counts& counts = types[type];
        ++counts.outcomes[outcome];
        counts.slowest = std::max(counts.slowest, time.count());
        if (picture && count > 2) {
            std::string name = file.lexically_relative(folder).string() + ".pam";
            std::ranges::replace(name, '/', '_');
            Save(*picture, Path(arguments[2]) / name);
        }
    }
    EndPictureProcess();
    std::printf("\n%-17s %7s %7s %10s %10s\n", "type", "shown", "refused", "one colour", "slowest ms");
    for (auto& [type, counts] : types) {
        std::printf("%-17s %7d %7d %10d %10.1f\n", type.c_str(), counts.outcomes["shown"],
                    counts.outcomes["refused"], counts.outcomes["one colour"], counts.slowest);
    }
}

// What it costs to read a picture for the preview: folimark-bench-pictures call|command FOLDER ROUNDS

#include "Measure.h"
#include "PictureProcess.h"
#include "Pictures.h"

#include <cstdlib>
#include <string_view>
#include <vips/vips.h>

namespace {

using namespace folimark;

/// Pixels, on either side; the preview's own.
constexpr int kRoom = 300;

void Read(const SamplePicture& sample) {
    if (!ReadPicture({sample.path, sample.type, kRoom, kRoom}).picture) {
        std::fprintf(stderr, "%s wasn't read\n", sample.path.c_str());
        std::exit(1);
    }
}

/// The same by the library that decodes most formats, in this process.
void ReadByLibrary(const SamplePicture& sample) {
    VipsImage* image = nullptr;
    std::size_t size = 0;
    void* pixels = nullptr;
    if (vips_thumbnail(sample.path.c_str(), &image, kRoom, "height", kRoom, nullptr) == 0) {
        pixels = vips_image_write_to_memory(image, &size);
        g_object_unref(image);
    }
    if (pixels == nullptr) {
        vips_error_exit("%s wasn't read", sample.path.c_str());
    }
    g_free(pixels);
}

void ReadByCommand(const SamplePicture& sample, const std::string& folder) {
    const std::string room = std::to_string(kRoom);
    const std::string command =
        "vipsthumbnail '" + sample.path + "' -s " + room + "x" + room + " -o '" + folder + "/thumbnail.ppm'";
    if (std::system(command.c_str()) != 0) {
        std::exit(1);
    }
}

} // namespace

int main(int count, char** arguments) {
    if (count != 4 || VIPS_INIT(arguments[0]) != 0) {
        return 2;
    }
    const bool byCommand = std::string_view(arguments[1]) == "command";
    const std::string folder = arguments[2];
    const int rounds = std::atoi(arguments[3]);
    vips_cache_set_max(0); // Each call reads the file.
    for (const SamplePicture& sample : MakePictures(folder)) {
        Read(sample); // starts the picture process
        Print("read a picture of 24 megapixels, " + sample.name + ", against "
                  + (byCommand ? "vipsthumbnail" : "vips_thumbnail"),
              Least(
                  rounds, [&] { return SecondsOf([&] { Read(sample); }); },
                  [&] {
                      return SecondsOf(
                          [&] { byCommand ? ReadByCommand(sample, folder) : ReadByLibrary(sample); });
                  }),
              1.05);
    }
    EndPictureProcess();
}

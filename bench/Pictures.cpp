#include "Pictures.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <vips/vips.h>

namespace {

constexpr int kWidth = 6000;
constexpr int kHeight = 4000;

void Check(int failed) {
    if (failed != 0) {
        vips_error_exit("the sample pictures can't be made");
    }
}

/// Clouds with grain.
VipsImage* MakeBand(int seed) {
    VipsImage* clouds = nullptr;
    VipsImage* grain = nullptr;
    VipsImage* sum = nullptr;
    VipsImage* light = nullptr;
    VipsImage* band = nullptr;
    Check(vips_perlin(&clouds, kWidth, kHeight, "cell_size", 500, "seed", seed, nullptr));
    Check(vips_gaussnoise(&grain, kWidth, kHeight, "mean", 0.0, "sigma", 9.0, "seed", seed, nullptr));
    const double factor = 110;
    const double mean = 128;
    Check(vips_linear1(clouds, &light, factor, mean, nullptr));
    Check(vips_add(light, grain, &sum, nullptr));
    Check(vips_cast_uchar(sum, &band, nullptr));
    return band;
}

/// The format is described in ISO 32000: one page that shows a JPEG file.
void WritePdf(const std::string& path, const std::string& jpeg) {
    std::ifstream input(jpeg, std::ios::binary);
    const std::string bytes((std::istreambuf_iterator<char>(input)), {});
    const std::string content = "q 600 0 0 400 0 0 cm /Photo Do Q";
    const std::string objects[] = {
        "<</Type/Catalog/Pages 2 0 R>>", "<</Type/Pages/Kids[3 0 R]/Count 1>>",
        "<</Type/Page/Parent 2 0 R/MediaBox[0 0 600 400]/Contents 4 0 R/Resources<</XObject<</Photo 5 0 R>>>>>>",
        "<</Length " + std::to_string(content.size()) + ">>stream\n" + content + "\nendstream",
        "<</Type/XObject/Subtype/Image/Width " + std::to_string(kWidth) + "/Height " + std::to_string(kHeight)
            + "/ColorSpace/DeviceRGB/BitsPerComponent 8/Filter/DCTDecode/Length "
            + std::to_string(bytes.size()) + ">>stream\n" + bytes + "\nendstream"};
    std::string pdf = "%PDF-1.4\n";
    std::string table = "0000000000 65535 f \n";
    int number = 0;
    for (const std::string& object : objects) {
        std::string place = std::to_string(pdf.size());
        table += place.insert(0, 10 - place.size(), '0') + " 00000 n \n";
        pdf += std::to_string(++number) + " 0 obj\n" + object + "\nendobj\n";
    }
    const std::string count = std::to_string(number + 1);
    const std::string start = std::to_string(pdf.size());
    std::ofstream(path, std::ios::binary)
        << pdf << "xref\n0 " << count << '\n'
        << table << "trailer<</Size " << count << "/Root 1 0 R>>\nstartxref\n"
        << start << "\n%%EOF\n";
}

} // namespace

std::vector<SamplePicture> MakePictures(const std::string& folder) {
    const std::string place = folder + "/pictures/";
    std::vector<SamplePicture> samples{{"JPEG", place + "photo.jpg", "image/jpeg"},
                                       {"progressive JPEG", place + "progressive.jpg", "image/jpeg"},
                                       {"PNG", place + "photo.png", "image/png"},
                                       {"TIFF", place + "photo.tif", "image/tiff"},
                                       {"BMP", place + "photo.bmp", "image/x-bmp"},
                                       {"GIF", place + "photo.gif", "image/gif"},
                                       {"JPEG 2000", place + "photo.jp2", "image/jpeg2000"},
                                       {"PDF", place + "photo.pdf", "book/pdf"}};
    if (std::filesystem::exists(samples.back().path)) { // which is made last
        return samples;
    }
    std::filesystem::create_directories(place);
    VipsImage* bands[] = {MakeBand(1), MakeBand(2), MakeBand(3)};
    VipsImage* joined = nullptr;
    VipsImage* photo = nullptr;
    Check(vips_bandjoin(bands, &joined, 3, nullptr));
    Check(vips_copy(joined, &photo, "interpretation", VIPS_INTERPRETATION_sRGB, nullptr));
    VipsImage* const memory = vips_image_copy_memory(photo);
    Check(memory == nullptr ? -1 : 0);
    const auto pathOf = [&](std::size_t i) { return samples[i].path.c_str(); };
    Check(vips_jpegsave(memory, pathOf(0), "Q", 93, nullptr));
    Check(vips_jpegsave(memory, pathOf(1), "Q", 93, "interlace", TRUE, nullptr));
    Check(vips_pngsave(memory, pathOf(2), "compression", 1, nullptr));
    Check(vips_tiffsave(memory, pathOf(3), nullptr));
    Check(vips_magicksave(memory, pathOf(4), nullptr));
    Check(vips_gifsave(memory, pathOf(5), "effort", 1, nullptr));
    Check(vips_jp2ksave(memory, pathOf(6), nullptr));
    WritePdf(pathOf(7), pathOf(0));
    return samples;
}

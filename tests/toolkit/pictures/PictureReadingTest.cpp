#include "PictureFixtures.h"

#include <gtest/gtest.h>

#include <random>

namespace folimark::test {
namespace {

struct Sample {
    const char* name;
    const char* type;
    const char* quarters = "RGBW";
};
constexpr Sample kSamples[] = {
    {"baseline.jpg", "image/jpeg"},
    {"progressive.jpg", "image/jpeg"},
    {"cmyk.jpg", "image/jpeg"},
    {"grey.jpg", "image/jpeg", "KWKW"},
    {"profile.jpg", "image/jpeg", "GRBW"}, // whose profile has red and green exchanged
    {"animated.gif", "image/gif"},
    {"transparent.gif", "image/gif", "RGB."},
    {"palette.png", "image/png"},
    {"interlaced16.png", "image/png"},
    {"half-transparent.png", "image/png", "rGBW"},
    {"rgb.tif", "image/tiff"},
    {"sixteen.tif", "image/tiff"},
    {"cmyk.tif", "image/tiff"},
    {"profile-cmyk.tif", "image/tiff", "GRBW"}, // cyan and magenta
    {"twelve.tif", "image/tiff"},               // bits a sample
    {"dark.tif", "image/tiff"},                 // 12 bits a sample, kept in 16
    {"float.tif", "image/tiff"},
    {"lab.tif", "image/tiff"},
    {"ycbcr.tif", "image/tiff"},
    {"rgb.pict", "image/pict"},
    {"palette.pict", "image/pict"},
    {"compressed.pict", "image/pict"}, // a JPEG picture inside
    {"rgb.jp2", "image/jpeg2000"},
    {"bare.jp2", "image/jpeg2000"},
    {"sixteen.jp2", "image/jpeg2000"},
    {"palette.jp2", "image/jpeg2000"},
    {"sycc.jp2", "image/jpeg2000"},
    {"transparent.jp2", "image/jpeg2000", "rGBW"},
    {"grey.jp2", "image/jpeg2000", "KWKW"},
    {"fifteen-bits.bmp", "image/x-bmp"},
    {"runs.bmp", "image/x-bmp"},
    {"page.pdf", "book/pdf"},
    {"turned.pdf", "book/pdf"},
    {"owner.pdf", "book/pdf"},                // encrypted, and readable without a password
    {"encrypted.pdf", "book/pdf", "nothing"}, // and not readable
};

TEST(PictureReading, ShowsEachKindOfFile) {
    for (const Sample& sample : kSamples) {
        const auto picture = Read(PictureFile(sample.name), sample.type);
        EXPECT_EQ(Quarters(picture), sample.quarters) << sample.name;
        EXPECT_EQ(Sizes(picture), picture ? "48x32 as 48x32" : "nothing") << sample.name;
    }
}

TEST(PictureReading, KeepsColoursExactly) {
    const auto corner = [](const char* name) { return *Read(PictureFile(name), "image/png")->pixels; };
    EXPECT_EQ(corner("palette.png"), 0xFFFF0000);
    EXPECT_EQ(corner("half-transparent.png"), 0x80800000);
    // Columns of the palette's colours 0 and 2, which are red, while 1 is green.
    EXPECT_EQ(Quarters(Read(PictureFile("palette-stripes.jp2"), "image/jpeg2000", 12, 12)), "RRRR");
}

TEST(PictureReading, ShowsPicturesWithBrokenProfiles) {
    std::string file = PictureFile("profile.jpg");
    const std::size_t profile = file.find("acsp");
    for (const std::size_t place : {profile - 36, profile, profile + 92, profile + 100}) {
        std::string broken = file;
        broken.replace(place, 4, "\xFF\xFF\xFF\xFF");
        EXPECT_NE(Quarters(Read(broken, "image/jpeg")), "nothing") << place;
    }
}

TEST(PictureReading, TellsWhatItCannotDraw) {
    // A frame of 32 by 32 points with a line across it.
    const std::string drawing = std::string(512, '\0') + Big(2, 0) + Big(8, 0x0000000000200020)
                                + "\x11\x01\x20" + Big(8, 0x0000000000200020) + "\xFF";
    EXPECT_EQ(Quarters(Read(drawing, "image/pict")), "nothing");
}

/// The JPEG file `name` with a note that it is to be shown in another orientation.
std::string Oriented(const std::string& name, int orientation) {
    std::string exif = "Exif" + Big(2, 0) + "MM" + Big(2, 42) + Big(4, 8);
    exif += Big(2, 1) + Big(2, 0x112) + Big(2, 3) + Big(4, 1) + Big(2, static_cast<unsigned>(orientation))
            + Big(6, 0);
    return PictureFile(name).insert(2, "\xFF\xE1" + Big(2, exif.size() + 2) + exif);
}

TEST(PictureReading, TurnsPicturesUpright) {
    constexpr const char* kQuarters[] = {"RGBW", "GRWB", "WBGR", "BWRG", "RBGW", "BRWG", "WGBR", "GWRB"};
    for (int orientation = 1; orientation <= 8; ++orientation) {
        for (const char* name : {"baseline.jpg", "progressive.jpg"}) {
            const auto picture = Read(Oriented(name, orientation), "image/jpeg", 24, 24);
            EXPECT_EQ(Quarters(picture), kQuarters[orientation - 1]) << orientation;
            EXPECT_EQ(Sizes(picture), orientation < 5 ? "48x32 as 24x16" : "32x48 as 16x24") << orientation;
        }
    }
    EXPECT_EQ(Quarters(Read(PictureFile("turned.tif"), "image/tiff")), "BRWG");
    std::string turned = PictureFile("ycbcr.tif"); // with the orientation in place of the rows of a strip
    const std::string field = Little(2, 3) + Little(4, 1);
    turned.replace(turned.find(Little(2, 0x116) + field), 9, Little(2, 0x112) + field + "\3");
    EXPECT_EQ(Quarters(Read(turned, "image/tiff")), "WBGR");
}

TEST(PictureReading, DecodesNoLargerThanWanted) {
    struct Case {
        int width, height;
        const char *image, *page;
    };
    for (const Case& c :
         {Case{12, 12, "48x32 as 12x8", "48x32 as 12x8"}, Case{24, 1000, "48x32 as 24x16", "48x32 as 24x16"},
          Case{1, 1, "48x32 as 1x1", "48x32 as 1x1"}, Case{480, 480, "48x32 as 48x32", "48x32 as 480x320"}}) {
        for (const char* name : {"baseline.jpg", "palette.png", "rgb.jp2", "fifteen-bits.bmp", "rgb.pict"}) {
            EXPECT_EQ(Sizes(Read(PictureFile(name), "image/jpeg", c.width, c.height)),
                      name == std::string("rgb.pict") ? "nothing" : c.image)
                << name;
        }
        EXPECT_EQ(Sizes(Read(PictureFile("rgb.pict"), "image/pict", c.width, c.height)), c.image);
        EXPECT_EQ(Sizes(Read(PictureFile("page.pdf"), "book/pdf", c.width, c.height)), c.page);
    }
}

TEST(PictureReading, GoesByContentAmongTheKnownKindsOnly) {
    EXPECT_EQ(Quarters(Read(PictureFile("palette.png"), "image/x-macpaint")), "RGBW");
    EXPECT_EQ(Quarters(Read(PictureFile("palette.png"), "text/plain")), "nothing");
    const std::string foreign = "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>";
    for (const Sample& sample : kSamples) {
        EXPECT_EQ(Quarters(Read(foreign, sample.type)), "nothing") << sample.type;
        EXPECT_EQ(Quarters(Read("", sample.type)), "nothing") << sample.type;
    }
}

/// A MacPaint picture whose left upper quarter is black: 360 such rows, and 360 white ones.
std::string MacPaint() {
    std::string content = Big(4, 2) + std::string(508, '\0');
    for (int row = 0; row < 720; ++row) {
        content += row < 360 ? std::string("\xDD\xFF\xDD\x00", 4) : std::string("\xB9\x00", 2);
    }
    return content;
}

TEST(PictureReading, ShowsMacPaintWithAndWithoutItsWrapping) {
    std::string wrapping = Big(1, 0) + "\x03mac" + std::string(60, '\0') + "PNTGMPNT";
    wrapping.resize(128);
    for (const std::string& content : {MacPaint(), wrapping + MacPaint()}) {
        const auto picture = Read(content, "image/x-macpaint", 72, 72);
        EXPECT_EQ(Quarters(picture), "KWWW");
        EXPECT_EQ(Sizes(picture), "576x720 as 58x72");
    }
    EXPECT_EQ(Quarters(Read(MacPaint().substr(0, 1800), "image/x-macpaint")), "KWWW"); // 322 rows
}

std::string Atom(const std::string& name, const std::string& content) {
    return Big(4, content.size() + 8) + name + content;
}

/// A QuickTime image; `table` is the description's colour table, if there is one.
std::string QuickTime(const std::string& codec, unsigned width, unsigned depth, const std::string& data,
                      const std::string& table = "") {
    const std::string description = Big(4, 86 + table.size()) + codec + std::string(24, '\0') + Big(2, width)
                                    + Big(2, 2) + Big(8, 0) + Big(4, data.size()) + Big(34, 0) + Big(2, depth)
                                    + Big(2, table.empty() ? 0xFFFF : 0) + table;
    return Atom("idsc", description) + Atom("idat", data);
}

TEST(PictureReading, UnwrapsQuickTimeImages) {
    using namespace std::string_literals;
    const std::string table = Big(6, 0) + Big(2, 3) + Big(2, 0) + Big(6, 0xFFFF00000000) + Big(2, 1)
                              + Big(6, 0x0000FFFF0000) + Big(2, 2) + Big(6, 0xFFFF) + Big(2, 3)
                              + Big(6, 0xFFFFFFFFFFFF);
    const std::pair<std::string, const char*> cases[] = {
        {QuickTime("jpeg", 48, 24, PictureFile("baseline.jpg")), "RGBW"},
        {QuickTime("png ", 48, 24, PictureFile("palette.png")), "RGBW"},
        {Atom("idat", PictureFile("rgb.tif")), "RGBW"},
        {QuickTime("raw ", 2, 32, "\xFF\xFF\0\0\xFF\0\xFF\0\xFF\0\0\xFF\0\0\0\0"s), "RGB."},
        {QuickTime("raw ", 2, 32, "\0\xFF\0\0\0\0\xFF\0\0\0\0\xFF\0\xFF\xFF\xFF"s), "RGBW"},
        {QuickTime("raw ", 2, 24, "\xFF\0\0\0\xFF\0\0\0\xFF\xFF\xFF\xFF"s), "RGBW"},
        {QuickTime("raw ", 2, 24, "\xFF\0\0\0\xFF\0 \0\0\xFF\xFF\xFF\xFF "s), "RGBW"}, // padded rows
        {QuickTime("raw ", 2, 16, "\x7C\0\x03\xE0\0\x1F\x7F\xFF"s), "RGBW"},
        {QuickTime("raw ", 2, 8, "\x23\xE1\xD2\0"s), "RGBW"},
        {QuickTime("raw ", 2, 40, "\0\xFF\xFF\0"s), "WKKW"},
        {QuickTime("raw ", 2, 2, "\x10\xB0"s, table), "RGBW"},
        {QuickTime("raw ", 2, 1, "\x40\x80"s), "WKKW"},
        {QuickTime("raw ", 2, 7, "\x40\x80"s), "nothing"},
        {QuickTime("rle ", 2, 24, "\x40\x80"s), "nothing"}};
    for (const auto& [content, quarters] : cases) {
        EXPECT_EQ(Quarters(Read(content, "image/x-quicktime")), quarters) << &content - &cases[0].first;
    }
    EXPECT_EQ(Sizes(Read(cases[4].first, "image/x-quicktime", 1, 2)),
              "2x2 as 2x2"); // a square goes by the height
}

TEST(PictureReading, ShowsWhatThereIsOfAPhotographCutOff) {
    const std::string whole = PictureFile("baseline.jpg");
    EXPECT_EQ(Quarters(Read(whole.substr(0, whole.size() - 12), "image/jpeg")).substr(0, 2), "RG");
}

TEST(PictureReading, OutlivesDamagedFiles) {
    std::minstd_rand random(1); // the same damage each time
    for (const Sample& sample : kSamples) {
        const std::string whole = PictureFile(sample.name);
        for (int i = 0; i < 12; ++i) {
            std::string damaged =
                whole.substr(0, i < 4 ? whole.size() * static_cast<unsigned>(i) / 4 : whole.size());
            for (int hits = i < 4 ? 0 : i; hits > 0; --hits) {
                damaged[random() % damaged.size()] = static_cast<char>(random());
            }
            Read(damaged, sample.type, 30, 30);
        }
        EXPECT_EQ(Quarters(Read(PictureFile("page.pdf"), "book/pdf")), "RGBW") << "after " << sample.name;
    }
}

TEST(PictureReading, OutlivesGiganticPictures) {
    constexpr unsigned kSide = 50'000;
    const std::string gif = "GIF89a" + Little(2, kSide) + Little(2, kSide) + Little(3, 0x80)
                            + Big(6, 0xFFFFFF) + "," + Big(4, 0) + Little(2, kSide) + Little(2, kSide)
                            + Big(2, 2) + std::string(1'000'000, '\x84');
    std::string jpeg = PictureFile("baseline.jpg");
    jpeg.replace(jpeg.find("\xFF\xC0") + 5, 4, Big(2, kSide) + Big(2, kSide));
    std::string jpeg2000 = PictureFile("bare.jp2");
    jpeg2000.replace(8, 8, Big(4, kSide) + Big(4, kSide)).replace(24, 8, Big(4, kSide) + Big(4, kSide));
    std::string bmp = PictureFile("fifteen-bits.bmp");
    bmp.replace(18, 8, Little(4, kSide) + Little(4, kSide));
    for (const std::string& content : {gif, jpeg, jpeg2000, bmp}) {
        const auto picture = Read(content, "image/png", 300, 300);
        EXPECT_EQ(Sizes(picture), picture ? "50000x50000 as 300x300" : "nothing");
        EXPECT_EQ(Quarters(Read(PictureFile("palette.png"), "image/png")), "RGBW");
    }
}

} // namespace
} // namespace folimark::test

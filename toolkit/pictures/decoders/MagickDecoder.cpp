#include "Decoders.h"
#include "PictureProtocol.h"
#include "Vips.h"

#include <algorithm>
#include <magick/MagickCore.h>

namespace folimark {
namespace {

void StartMagick() {
    MagickCoreGenesis("folimark-pictures", MagickFalse); // does its work once
    // What the header shows to be larger is refused before it is read.
    constexpr MagickSizeType kMostMemory = MagickSizeType{1} << 30; // bytes; a pixel takes eight
    SetMagickResourceLimit(DiskResource, 0);
    SetMagickResourceLimit(MapResource, 0);
    SetMagickResourceLimit(MemoryResource, kMostMemory);
    SetMagickResourceLimit(AreaResource, kMostMemory / 8);
    SetMagickResourceLimit(WidthResource, kLongestSide);
    SetMagickResourceLimit(HeightResource, kLongestSide);
    SetMagickResourceLimit(ThreadResource, 1);
}

struct MagickRelease {
    void operator()(ImageInfo* info) const { DestroyImageInfo(info); }
    void operator()(ExceptionInfo* exception) const { DestroyExceptionInfo(exception); }
    void operator()(Image* image) const { DestroyImageList(image); }
};
using Magick = std::unique_ptr<Image, MagickRelease>;
using MagickException = std::unique_ptr<ExceptionInfo, MagickRelease>;

/// The first picture of `file`; null if the loader of that name can't read it. The content has no say in
/// which loader is taken.
Magick Load(const std::string& loader, Bytes file, ExceptionInfo* exception) {
    const std::unique_ptr<ImageInfo, MagickRelease> info(AcquireImageInfo());
    CopyMagickString(info->filename, (loader + ":").c_str(), sizeof info->filename);
    CopyMagickString(info->magick, loader.c_str(), sizeof info->magick);
    info->number_scenes = 1;
    return Magick(BlobToImage(info.get(), file.data(), file.size(), exception));
}

/// Upright, in red, green and blue.
Magick Normalised(Magick image, ExceptionInfo* exception) {
    if (Image* upright = AutoOrientImage(image.get(), image->orientation, exception)) {
        image.reset(upright);
    }
    // What the loaders call YCbCr they have turned into red, green and blue already.
    if (image->colorspace == CMYKColorspace || image->colorspace == LabColorspace) {
        TransformImageColorspace(image.get(), sRGBColorspace);
    }
    return image;
}

Bytes ProfileOf(const Image& image) {
    const StringInfo* profile = GetImageProfile(&image, "icc");
    return profile == nullptr ? Bytes() : Bytes(GetStringInfoDatum(profile), GetStringInfoLength(profile));
}

std::optional<Pixels> DecodeWithMagick(const std::string& loader, Bytes file, Size wanted,
                                       bool (*isUsable)(const Samples& samples) = nullptr) {
    StartMagick();
    const MagickException exception(AcquireExceptionInfo());
    Magick image = Load(loader, file, exception.get());
    if (!image) {
        return std::nullopt;
    }
    const bool isCmyk = image->colorspace == CMYKColorspace;
    image = Normalised(std::move(image), exception.get());
    const Size size{static_cast<int>(image->columns), static_cast<int>(image->rows)};
    Samples samples{size, size, image->matte != MagickFalse ? 4 : 3, false, {}, {}, 1};
    samples.bytes.resize(image->columns * image->rows * static_cast<std::size_t>(samples.samplesPerPixel));
    if (ExportImagePixels(image.get(), 0, 0, image->columns, image->rows,
                          samples.samplesPerPixel == 4 ? "RGBA" : "RGB", CharPixel, samples.bytes.data(),
                          exception.get())
            == MagickFalse
        || (isUsable != nullptr && !isUsable(samples))) {
        return std::nullopt;
    }
    if (!isCmyk) {
        samples.profile = ProfileOf(*image);
    }
    return Scaled(samples, wanted);
}

} // namespace

// The loader knows pictures made of dots. What is drawn with lines and letters it leaves an empty ground.
std::optional<Pixels> DecodePict(Bytes file, Size wanted) {
    return DecodeWithMagick("PICT", file, wanted, [](const Samples& samples) {
        return !std::equal(samples.bytes.begin() + samples.samplesPerPixel, samples.bytes.end(),
                           samples.bytes.begin(), samples.bytes.end() - samples.samplesPerPixel);
    });
}

std::optional<Pixels> DecodeJpegWithMagick(Bytes file, Size wanted) {
    return DecodeWithMagick("JPEG", file, wanted);
}

std::optional<Pixels> DecodeTiffWithMagick(Bytes file, Size wanted) {
    return DecodeWithMagick("TIFF", file, wanted);
}

std::optional<Pixels> DecodeBmpWithMagick(Bytes file, Size wanted) {
    return DecodeWithMagick("BMP", file, wanted);
}

} // namespace folimark

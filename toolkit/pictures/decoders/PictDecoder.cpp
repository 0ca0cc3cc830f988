#include "Decoders.h"
#include "Vips.h"

#include <magick/MagickCore.h>

namespace folimark {
namespace {

void StartMagick() {
    MagickCoreGenesis("folimark-pictures", MagickFalse); // does its work once
    SetMagickResourceLimit(DiskResource, 0);
    SetMagickResourceLimit(ThreadResource, 1);
}

struct MagickRelease {
    void operator()(ImageInfo* info) const { DestroyImageInfo(info); }
    void operator()(ExceptionInfo* exception) const { DestroyExceptionInfo(exception); }
    void operator()(Image* image) const { DestroyImageList(image); }
};

} // namespace

std::optional<Pixels> DecodePict(Bytes file, Size wanted) {
    StartMagick();
    const std::unique_ptr<ImageInfo, MagickRelease> info(AcquireImageInfo());
    const std::unique_ptr<ExceptionInfo, MagickRelease> exception(AcquireExceptionInfo());
    // A name with a prefix decides the loader; the content has no say.
    CopyMagickString(info->filename, "PICT:", sizeof info->filename);
    CopyMagickString(info->magick, "PICT", sizeof info->magick);
    const std::unique_ptr<Image, MagickRelease> image(
        BlobToImage(info.get(), file.data(), file.size(), exception.get()));
    if (!image) {
        return std::nullopt;
    }
    const Size size{static_cast<int>(image->columns), static_cast<int>(image->rows)};
    Samples samples{size, size, image->matte != MagickFalse ? 4 : 3, false, {}, {}};
    samples.bytes.resize(image->columns * image->rows * static_cast<std::size_t>(samples.samplesPerPixel));
    if (ExportImagePixels(image.get(), 0, 0, image->columns, image->rows,
                          samples.samplesPerPixel == 4 ? "RGBA" : "RGB", CharPixel, samples.bytes.data(),
                          exception.get())
        == MagickFalse) {
        return std::nullopt;
    }
    return Scaled(samples, wanted);
}

} // namespace folimark

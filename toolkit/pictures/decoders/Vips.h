#pragma once

#include "Pixels.h"

#include <memory>
#include <utility>
#include <vips/vips.h>

namespace folimark {

struct VipsRelease {
    void operator()(VipsImage* image) const { g_object_unref(image); }
};
using Vips = std::unique_ptr<VipsImage, VipsRelease>;

struct GlibRelease {
    void operator()(void* memory) const { g_free(memory); }
};

/// One step of a computation, with what it takes beside its input; null if it, or the one before it, has
/// failed.
template <class Operation, class... Arguments>
Vips Then(const Vips& input, Operation operation, Arguments... arguments) {
    VipsImage* output = nullptr;
    return Vips(input && operation(input.get(), &output, arguments..., nullptr) == 0 ? output : nullptr);
}

/// All samples of a picture, and how many bytes they take; null if its computation fails, or has failed.
std::pair<std::unique_ptr<std::uint8_t[], GlibRelease>, std::size_t> MemoryOf(const Vips& image);

/// Starts libvips at the first call, with none of its loaders but those that this process uses.
bool StartVips();

/// A picture of which no more than the head has been read yet; null if it is of none of the loaders' formats.
/// `options` are the loader's, as in "shrink=2".
Vips ReadHead(Bytes file, const char* options = "");

/// The size that `image` has when it is turned as its metadata says.
Size UprightSize(VipsImage* image);

/// The pixels of `image`, whatever its kind of samples; `picture` is the own size that they stand for.
std::optional<Pixels> PixelsOf(const Vips& image, Size picture);

/// The name for the option "export_profile" of libvips' scaling: sRGB for an `image` that has a profile of
/// its own, none for one without. That is sRGB already, and the way through a profile would tint it.
const char* ProfileFor(VipsImage* image);

/// Does `image` have a profile of CMYK? libvips' own scaling goes through a profile of the library's then,
/// and never looks at the picture's.
bool HasProfileOfInks(VipsImage* image);

/// Scales such an `image` to exactly the upright size, and takes its colours to sRGB by its profile; null if
/// the profile is broken.
Vips ScaledByInks(const Vips& image, Size upright);

/// Scales `samples` to the size for a box of the size `wanted`, and takes their colours to sRGB.
std::optional<Pixels> Scaled(const Samples& samples, Size wanted);

} // namespace folimark

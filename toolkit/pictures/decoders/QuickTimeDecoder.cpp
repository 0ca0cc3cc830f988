#include "BigEndian.h"
#include "Decoders.h"
#include "ImageDescription.h"
#include "PictureFormat.h"
#include "Vips.h"

namespace folimark {
namespace {

struct Atoms {
    Bytes description; // 'idsc'
    Bytes data;        // 'idat'
};

/// The atoms at the file's top: a size, which counts itself, a name of four letters and the content.
Atoms ReadAtoms(Bytes file) {
    Atoms atoms;
    BigEndianReader reader(file);
    while (!reader.Left().empty()) {
        const std::size_t before = reader.Left().size();
        std::uint64_t size = reader.U32();
        const std::uint32_t name = reader.U32();
        if (size == 1) {
            size = reader.U64();
        }
        // 0 stands for the rest of the file; and of an atom that is cut off there is what there is.
        if (size == 0 || size > before) {
            size = before;
        }
        const std::size_t head = before - reader.Left().size();
        if (!reader.IsSound() || size < head) {
            break;
        }
        const Bytes content = reader.Take(size - head);
        if (name == FourCC("idsc")) {
            atoms.description = content;
        } else if (name == FourCC("idat")) {
            atoms.data = content;
        }
    }
    return atoms;
}

} // namespace

std::optional<Pixels> DecodeQuickTimeImage(Bytes file, Size wanted) {
    const Atoms atoms = ReadAtoms(file);
    const PictureFormat* format = FormatOfContent(atoms.data);
    if (format != nullptr && format->type != "book/pdf") { // only pictures were ever wrapped
        return DecodeAs(*format, atoms.data, wanted);
    }
    const std::optional<ImageDescription> description = ReadImageDescription(atoms.description);
    if (!description || description->codec != FourCC("raw ")) {
        return std::nullopt;
    }
    const std::optional<Samples> samples = ReadRawPicture(*description, atoms.data);
    return samples ? Scaled(*samples, wanted) : std::nullopt;
}

} // namespace folimark

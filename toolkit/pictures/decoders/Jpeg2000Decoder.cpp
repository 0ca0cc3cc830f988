#include "BigEndian.h"
#include "Decoders.h"
#include "Jpeg2000Samples.h"
#include "PictureProtocol.h"
#include "Vips.h"

#include <algorithm>
#include <cstring>

namespace folimark {
namespace {

/// Where a decoder stands in the file.
struct Source {
    Bytes bytes;
    std::size_t position = 0;
};

OPJ_SIZE_T Read(void* buffer, OPJ_SIZE_T length, void* user) {
    auto* source = static_cast<Source*>(user);
    const std::size_t count = std::min<std::size_t>(length, source->bytes.size() - source->position);
    if (count == 0) {
        return static_cast<OPJ_SIZE_T>(-1);
    }
    std::memcpy(buffer, source->bytes.data() + source->position, count);
    source->position += count;
    return count;
}

OPJ_BOOL Seek(OPJ_OFF_T position, void* user) {
    auto* source = static_cast<Source*>(user);
    if (position < 0 || static_cast<std::size_t>(position) > source->bytes.size()) {
        return OPJ_FALSE;
    }
    source->position = static_cast<std::size_t>(position);
    return OPJ_TRUE;
}

OPJ_OFF_T Skip(OPJ_OFF_T count, void* user) {
    const auto* source = static_cast<Source*>(user);
    return Seek(static_cast<OPJ_OFF_T>(source->position) + count, user) != OPJ_FALSE ? count : -1;
}

/// The content of the first box of that name; empty if there is none. A box has a size, which counts itself,
/// and a name of four letters.
Bytes FindBox(Bytes boxes, std::uint32_t wanted) {
    BigEndianReader reader(boxes);
    while (reader.IsSound() && !reader.Left().empty()) {
        const std::uint32_t size = reader.U32();
        const std::uint32_t name = reader.U32();
        const std::size_t length = size == 0 ? reader.Left().size() : std::max(size, 8U) - 8;
        const Bytes content = reader.Take(std::min(length, reader.Left().size()));
        if (name == wanted) {
            return content;
        }
    }
    return {};
}

/// Whether the samples are numbers of colours: these mean nothing when they are mixed.
bool HasPalette(Bytes file) {
    return !FindBox(FindBox(file, FourCC("jp2h")), FourCC("pclr")).empty();
}

/// How often the picture may be halved, of the times that the file allows, without becoming smaller than
/// `size`.
OPJ_UINT32 HalvingsFor(opj_codec_t* codec, Size picture, Size size) {
    opj_codestream_info_v2_t* info = opj_get_cstr_info(codec);
    const OPJ_UINT32 levels = info != nullptr && info->m_default_tile_info.tccp_info != nullptr
                                  ? info->m_default_tile_info.tccp_info->numresolutions
                                  : 1;
    opj_destroy_cstr_info(&info);
    OPJ_UINT32 halvings = 0;
    while (halvings + 1 < levels && picture.width >> (halvings + 1) >= size.width
           && picture.height >> (halvings + 1) >= size.height) {
        ++halvings;
    }
    return halvings;
}

} // namespace

std::optional<Pixels> DecodeJpeg2000(Bytes file, Size wanted) {
    const bool isBare = !file.empty() && file[0] == 0xFF; // a codestream without boxes around it
    const std::unique_ptr<opj_codec_t, decltype(&opj_destroy_codec)> codec(
        opj_create_decompress(isBare ? OPJ_CODEC_J2K : OPJ_CODEC_JP2), &opj_destroy_codec);
    const std::unique_ptr<opj_stream_t, decltype(&opj_stream_destroy)> stream(
        opj_stream_default_create(OPJ_TRUE), &opj_stream_destroy);
    Source source{file};
    opj_stream_set_user_data(stream.get(), &source, nullptr);
    opj_stream_set_user_data_length(stream.get(), file.size());
    opj_stream_set_read_function(stream.get(), Read);
    opj_stream_set_skip_function(stream.get(), Skip);
    opj_stream_set_seek_function(stream.get(), Seek);

    opj_dparameters_t parameters;
    opj_set_default_decoder_parameters(&parameters);
    opj_image_t* head = nullptr;
    if (opj_setup_decoder(codec.get(), &parameters) == OPJ_FALSE) {
        return std::nullopt;
    }
    opj_decoder_set_strict_mode(codec.get(), OPJ_FALSE); // what is cut off is shown as far as it goes
    opj_codec_set_threads(codec.get(), 1);
    if (opj_read_header(stream.get(), codec.get(), &head) == OPJ_FALSE) {
        return std::nullopt;
    }
    const std::unique_ptr<opj_image_t, decltype(&opj_image_destroy)> image(head, &opj_image_destroy);
    // The first component is the picture; the others are stretched to it.
    if (image->numcomps == 0) {
        return std::nullopt;
    }
    const opj_image_comp_t& first = image->comps[0];
    if (first.w == 0 || first.h == 0 || first.w > kLongestSide || first.h > kLongestSide) {
        return std::nullopt;
    }
    const Size picture{static_cast<int>(first.w), static_cast<int>(first.h)};
    const OPJ_UINT32 halvings =
        !isBare && HasPalette(file) ? 0 : HalvingsFor(codec.get(), picture, SizeFor(picture, wanted));
    if (opj_set_decoded_resolution_factor(codec.get(), halvings) == OPJ_FALSE
        || opj_decode(codec.get(), stream.get(), image.get()) == OPJ_FALSE) {
        return std::nullopt;
    }
    const std::optional<Samples> samples = SamplesOf(*image, picture);
    return samples ? Scaled(*samples, wanted) : std::nullopt;
}

} // namespace folimark

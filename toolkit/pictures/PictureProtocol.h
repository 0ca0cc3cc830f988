#pragma once

#include "Descriptor.h"
#include "PictureRefusal.h"

#include <array>
#include <cstdint>
#include <sys/socket.h>
#include <sys/types.h>

/// What the application and its picture process say to each other: over a local socket of whole messages
/// (SOCK_SEQPACKET), one question and one answer at a time. The socket's end is the process's end.
namespace folimark {

/// The socket's descriptor in the picture process, next to the three standard ones.
inline constexpr int kPictureSocket = 3;

/// No picture that is handed over has more pixels, so none takes more than 256 MiB.
inline constexpr std::int64_t kMostPixels = std::int64_t{1} << 26;

/// Nor is a picture, or what is handed over of it, wider or higher.
inline constexpr std::int32_t kLongestSide = 1 << 20;

/// With a request come two descriptors: the file, and shared memory for MostPixels pixels. The application
/// makes the memory, fixes its size and forbids writing once it has the answer, so that nothing that the
/// picture process does to it later can hurt. A page of it that is never touched costs nothing.
struct PictureRequest {
    std::array<char, 32> type{}; // ends with a 0
    std::int32_t wantedWidth = 0;
    std::int32_t wantedHeight = 0;
    std::uint32_t number = 0; // of the question; the worker sets it
};
inline constexpr std::size_t kRequestDescriptors = 2;

/// The members mean what they mean in DecodedPicture; the pixels stand at the start of the shared memory,
/// which the picture process has unmapped before it answers. All zero if there is no picture.
struct PictureAnswer {
    std::int32_t pictureWidth = 0;
    std::int32_t pictureHeight = 0;
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::uint32_t number = 0; // of the question that is answered
    PictureRefusal refusal = PictureRefusal::None;
};

/// The most pixels that an answer to `request` can have: those of a square as long as the room's longer side.
std::int64_t MostPixels(const PictureRequest& request);

/// Whether an answer to `request` holds a picture, whose sizes are within bounds and whose pixels in the
/// memory.
bool IsSound(const PictureAnswer& answer, const PictureRequest& request);

/// Sends `request` without waiting; false if the other side has gone.
bool SendRequest(int socket, const PictureRequest& request,
                 const std::array<int, kRequestDescriptors>& descriptors);

/// Waits for the next request. False at the socket's end, and for what is no request.
bool ReceiveRequest(int socket, PictureRequest& request,
                    std::array<Descriptor, kRequestDescriptors>& descriptors);

} // namespace folimark

#include "PictureProtocol.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace folimark {
namespace {

/// A message of one request, with room for its descriptors.
struct Message {
    explicit Message(PictureRequest& request) : part{&request, sizeof request} {
        header.msg_iov = &part;
        header.msg_iovlen = 1;
        header.msg_control = control.data();
        header.msg_controllen = control.size();
    }

    iovec part;
    alignas(cmsghdr) std::array<char, CMSG_SPACE(kRequestDescriptors * sizeof(int))> control{};
    msghdr header{};
};

} // namespace

std::int64_t MostPixels(const PictureRequest& request) {
    const std::int64_t side = std::max(request.wantedWidth, request.wantedHeight);
    const bool isOwnSize = request.wantedWidth <= 0 || request.wantedHeight <= 0;
    return isOwnSize || side > kLongestSide ? kMostPixels : std::min(kMostPixels, side * side);
}

bool IsSound(const PictureAnswer& answer, const PictureRequest& request) {
    const auto isSide = [](std::int32_t length) { return length > 0 && length <= kLongestSide; };
    return isSide(answer.pictureWidth) && isSide(answer.pictureHeight) && isSide(answer.width)
           && isSide(answer.height) && std::int64_t{answer.width} * answer.height <= MostPixels(request);
}

bool SendRequest(int socket, const PictureRequest& request,
                 const std::array<int, kRequestDescriptors>& descriptors) {
    PictureRequest copy = request;
    Message message(copy);
    cmsghdr* rights = CMSG_FIRSTHDR(&message.header);
    rights->cmsg_level = SOL_SOCKET;
    rights->cmsg_type = SCM_RIGHTS;
    rights->cmsg_len = CMSG_LEN(sizeof descriptors);
    std::memcpy(CMSG_DATA(rights), descriptors.data(), sizeof descriptors);
    ssize_t sent = -1;
    do {
        sent = sendmsg(socket, &message.header, MSG_NOSIGNAL | MSG_DONTWAIT);
    } while (sent < 0 && errno == EINTR);
    return sent == static_cast<ssize_t>(sizeof request);
}

bool ReceiveRequest(int socket, PictureRequest& request,
                    std::array<Descriptor, kRequestDescriptors>& descriptors) {
    Message message(request);
    ssize_t received = -1;
    do {
        received = recvmsg(socket, &message.header, MSG_CMSG_CLOEXEC);
    } while (received < 0 && errno == EINTR);
    if (received != static_cast<ssize_t>(sizeof request)) {
        return false;
    }
    const cmsghdr* rights = CMSG_FIRSTHDR(&message.header);
    if (rights == nullptr || rights->cmsg_type != SCM_RIGHTS
        || rights->cmsg_len != CMSG_LEN(kRequestDescriptors * sizeof(int))) {
        return false;
    }
    std::array<int, kRequestDescriptors> numbers{};
    std::memcpy(numbers.data(), CMSG_DATA(rights), sizeof numbers);
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        descriptors.at(i) = Descriptor(numbers.at(i));
    }
    request.type.back() = '\0';
    return true;
}

} // namespace folimark

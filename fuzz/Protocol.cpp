#include "PictureProtocol.h"

#include <cstdlib>
#include <cstring>

using namespace folimark;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

// Both sides: what the picture process takes for a request, and what the application takes for a sound answer
// to it.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::array<int, 2> pair{};
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, pair.data()) != 0) {
        return 0;
    }
    Descriptor sender(pair[0]);
    const Descriptor receiver(pair[1]);
    PictureRequest request;
    std::array<Descriptor, kRequestDescriptors> descriptors;
    if (size >= sizeof request && data[0] % 2 == 0) {
        std::memcpy(&request, data, sizeof request);
        SendRequest(sender.Get(), request, {sender.Get(), sender.Get()});
    } else {
        send(sender.Get(), data, size, MSG_NOSIGNAL);
    }
    sender.Close();
    if (ReceiveRequest(receiver.Get(), request, descriptors)
        && (request.type.back() != 0 || !descriptors[0] || !descriptors[1])) {
        std::abort();
    }
    PictureAnswer answer;
    if (size >= sizeof request + sizeof answer) {
        std::memcpy(&answer, data + sizeof request, sizeof answer);
        if (IsSound(answer, request)
            && (answer.width <= 0 || answer.height <= 0 || answer.width > kMostPixels / answer.height)) {
            std::abort();
        }
    }
    return 0;
}

#include "SingleInstance.h"

#include "Application.h"
#include "Descriptor.h"
#include "EventGate.h"
#include "EventLoop.h"
#include "Exceptions.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace folimark {
namespace {

using Clock = std::chrono::steady_clock;

/// How long a claim waits before it tries again, while the other process starts or ends.
constexpr int kPauseMilliseconds = 10;

struct Address {
    sockaddr_un name{};
    socklen_t length = 0;

    const sockaddr* Get() const { return reinterpret_cast<const sockaddr*>(&name); }
};

/// One folder has one row of addresses, through whichever links it is reached. The second and later ones are
/// for when a stranger holds those before.
Address AddressOf(const std::string& folder, int number) {
    std::error_code failed;
    std::string path = std::filesystem::weakly_canonical(folder, failed);
    if (failed) {
        path = folder;
    }
    const std::string name = "folimark-" + std::to_string(getuid()) + "-"
                             + std::to_string(std::hash<std::string>()(path)) // a path may be too long
                             + "-" + std::to_string(number);
    Address address;
    address.name.sun_family = AF_UNIX;
    // A zero byte in front keeps the name out of the file system.
    std::copy(name.begin(), name.end(), address.name.sun_path + 1);
    address.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + name.size());
    return address;
}

Descriptor NewSocket(const std::string& folder) {
    Descriptor descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!descriptor) {
        throw IOException("Can't ask whether the application is running for", folder, errno);
    }
    return descriptor;
}

/// Does the same user run the process at the other end? Anybody on the machine can take a name, and connect.
bool IsOfSameUser(const Descriptor& connection) {
    ucred peer{};
    socklen_t size = sizeof peer;
    return getsockopt(connection.Get(), SOL_SOCKET, SO_PEERCRED, &peer, &size) == 0 && peer.uid == getuid();
}

enum class Answer { None, HasComeForward, FromStranger };

/// Asks the process that has the address to come forward, by `end`.
Answer Ask(const Descriptor& connection, const Address& address, Clock::time_point end) {
    if (connect(connection.Get(), address.Get(), address.length) != 0) {
        return Answer::None; // it doesn't listen yet, or no longer, or others wait already
    }
    if (!IsOfSameUser(connection)) {
        return Answer::FromStranger;
    }
    pollfd answer{connection.Get(), POLLIN, 0};
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
    char byte = 0;
    const bool came = poll(&answer, 1, static_cast<int>(std::max<std::int64_t>(left, 0))) == 1
                      && recv(connection.Get(), &byte, 1, 0) == 1;
    return came ? Answer::HasComeForward : Answer::None;
}

} // namespace

/// The socket of the process that has been granted its claim.
class SingleInstance::Listener {
  public:
    Listener(Descriptor listening, std::function<void()> comeForward)
        : socket_(std::move(listening)), comeForward_(std::move(comeForward)),
          watch_(WatchDescriptor(socket_.Get(), [this] { ComeForward(); })) {}

  private:
    void ComeForward() {
        const Descriptor connection(accept4(socket_.Get(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (!connection || !IsOfSameUser(connection) || IsQuitting()) {
            return; // another one of ours tries again, and takes our place when we have gone
        }
        EnterApplication(comeForward_);
        const char byte = 1;
        send(connection.Get(), &byte, 1, MSG_NOSIGNAL);
    }

    Descriptor socket_;
    std::function<void()> comeForward_;
    std::shared_ptr<void> watch_;
};

SingleInstance::SingleInstance() = default;
SingleInstance::~SingleInstance() = default;

SingleInstance::Claim SingleInstance::Take(const std::string& folder, std::function<void()> comeForward,
                                           std::chrono::milliseconds patience) {
    int number = 0;
    const Clock::time_point end = Clock::now() + patience;
    do {
        const Address address = AddressOf(folder, number);
        Descriptor listening = NewSocket(folder);
        if (bind(listening.Get(), address.Get(), address.length) == 0) {
            if (listen(listening.Get(), SOMAXCONN) != 0) {
                throw IOException("Can't listen for further starts for", folder, errno);
            }
            listener_ = std::make_unique<Listener>(std::move(listening), std::move(comeForward));
            return Claim::Granted;
        }
        if (errno != EADDRINUSE) {
            throw IOException("Can't claim", folder, errno);
        }
        switch (Ask(NewSocket(folder), address, end)) {
        case Answer::HasComeForward:
            return Claim::Forwarded;
        case Answer::FromStranger:
            ++number;
            break;
        case Answer::None:
            poll(nullptr, 0, kPauseMilliseconds);
            break;
        }
    } while (Clock::now() < end);
    return Claim::Unanswered;
}

} // namespace folimark

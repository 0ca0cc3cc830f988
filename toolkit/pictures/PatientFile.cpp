#include "PatientFile.h"

#include "RegularFile.h"

#include <thread>

namespace folimark {
PatientFile::PatientFile(std::string path) {
    std::promise<int> opened;
    opened_ = opened.get_future();
    std::thread([path = std::move(path), opened = std::move(opened), done = done_.get_future()]() mutable {
        const Descriptor file = OpenRegularFile(path);
        opened.set_value(file.Get());
        done.wait();
    }).detach();
}

PatientFile::~PatientFile() {
    done_.set_value();
}

int PatientFile::Wait(std::chrono::steady_clock::time_point end) {
    return opened_.wait_until(end) == std::future_status::ready ? opened_.get() : -1;
}

} // namespace folimark

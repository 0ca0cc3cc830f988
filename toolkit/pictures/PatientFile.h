#pragma once

#include <chrono>
#include <future>
#include <memory>
#include <string>

namespace folimark {

/// A regular file that is opened for reading, and closed again, on a thread of its own: on a mount that
/// doesn't answer any more, either may last for ever, and then this thread alone is left behind.
class PatientFile {
  public:
    /// Begins to open the file at a native path.
    explicit PatientFile(std::string path);
    PatientFile(const PatientFile&) = delete;
    PatientFile& operator=(const PatientFile&) = delete;
    /// Lets the thread close the file, and doesn't wait for that.
    ~PatientFile();

    /// The descriptor, which is the thread's and open as long as this lives. -1 if the file can't be opened,
    /// is no regular file, or isn't open at `end`.
    int Wait(std::chrono::steady_clock::time_point end);

  private:
    std::future<int> opened_;
    std::promise<void> done_;
};

} // namespace folimark

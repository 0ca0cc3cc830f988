#pragma once

namespace folimark {

/// As long as one lives the pointer says that something is being started; what the application has chosen for
/// it waits.
class BusyPointer {
  public:
    BusyPointer();
    BusyPointer(const BusyPointer&) = delete;
    BusyPointer& operator=(const BusyPointer&) = delete;
    ~BusyPointer();
};

} // namespace folimark

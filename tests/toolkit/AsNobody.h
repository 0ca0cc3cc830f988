#pragma once

#include <gtest/gtest.h>

#include <unistd.h>

namespace folimark::test {

/// The system's answers as another user gets them, who may not pass over permissions.
class AsNobody {
  public:
    AsNobody() : wasRoot_(geteuid() == 0 && seteuid(65534) == 0) {}
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;
    ~AsNobody() {
        if (wasRoot_ && seteuid(0) != 0) {
            ADD_FAILURE() << "The test stays another user.";
        }
    }

  private:
    bool wasRoot_;
};

} // namespace folimark::test

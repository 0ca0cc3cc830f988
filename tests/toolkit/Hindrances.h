#pragma once

#include "Finally.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
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

/// No more than `most` of a resource (RLIMIT_…) is to be had until the result's scope ends.
inline auto NoMore(__rlimit_resource resource, rlim_t most = 0) {
    rlimit old{};
    getrlimit(resource, &old);
    const rlimit none{most, old.rlim_max};
    setrlimit(resource, &none);
    return Finally([=] { setrlimit(resource, &old); });
}

} // namespace folimark::test

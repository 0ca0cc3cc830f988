#pragma once

#include <utility>

namespace folimark {

/// Does something when its scope ends, in whatever way: `const Finally restore([&] { … });`. What it does
/// must not raise anything.
template <class Action>
class [[nodiscard]] Finally {
  public:
    explicit Finally(Action action) : action_(std::move(action)) {}
    Finally(const Finally&) = delete;
    Finally& operator=(const Finally&) = delete;
    ~Finally() { action_(); }

  private:
    Action action_;
};

} // namespace folimark

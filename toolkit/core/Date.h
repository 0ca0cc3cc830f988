#pragma once

#include "Object.h"

#include <cstdint>
#include <string>

namespace folimark {

/// A point in time.
class Date : public Object {
  public:
    /// Seconds since 1970-01-01 00:00 UTC; negative before.
    explicit Date(std::int64_t secondsSinceEpoch) : seconds_(secondsSinceEpoch) {}

    /// The day in the user's time zone as YYYY-MM-DD. Broken file times lie far outside the years 1 to 9999;
    /// they show that range's first or last day, so that the form, and with it the order as text, holds.
    std::string SQLDate() const;

  private:
    std::int64_t seconds_;
};

} // namespace folimark

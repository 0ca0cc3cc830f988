#pragma once

#include "Units.h"

#include <array>
#include <span>
#include <vector>

namespace folimark {

/// So many units in logical pixels, where a row is `rowHeight` pixels high, and back.
int PixelsOf(int units, int rowHeight);
int UnitsOf(int pixels, int rowHeight);

/// One direction of a window's content, across or down: where each of its positions stands on the screen, in
/// logical pixels from the content's edge, if `room` pixels are to hold all of it. With room to spare each
/// stands where it belongs. With too little the strips give way, as far as they go.
class ContentFit {
  public:
    ContentFit() = default;
    ContentFit(int length, std::span<const Slack> strips, int rowHeight, int room);

    int Pixels(int position) const;
    /// What the content asks for once the strips of so many turns have gone.
    static int Least(int length, std::span<const Slack> strips, int rowHeight, int turns = Slack::kTurns);

  private:
    std::vector<Slack> strips_;
    /// How much of each turn's strips has gone: 0 is nothing, 1 is all.
    std::array<double, Slack::kTurns> gone_{};
    int rowHeight_ = kUnitsPerRow;
};

} // namespace folimark

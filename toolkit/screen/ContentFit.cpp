#include "ContentFit.h"

#include <algorithm>
#include <cmath>

namespace folimark {
namespace {

double InPixels(double units, int rowHeight) {
    return units * rowHeight / kUnitsPerRow;
}

/// How much of a strip lies before a position.
int Before(const Slack& strip, int position) {
    return std::clamp(position, strip.from, strip.to) - strip.from;
}

int TotalOf(std::span<const Slack> strips, int turn, int length) {
    int total = 0;
    for (const Slack& strip : strips) {
        total += strip.turn == turn ? Before(strip, length) : 0;
    }
    return total;
}

} // namespace

int PixelsOf(int units, int rowHeight) {
    return static_cast<int>(std::lround(InPixels(units, rowHeight)));
}

int UnitsOf(int pixels, int rowHeight) {
    return static_cast<int>(std::lround(static_cast<double>(pixels) * kUnitsPerRow / rowHeight));
}

ContentFit::ContentFit(int length, std::span<const Slack> strips, int rowHeight, int room)
    : strips_(strips.begin(), strips.end()), rowHeight_(rowHeight) {
    double missing = std::max(0.0, InPixels(length, rowHeight) - room);
    for (int turn = 0; turn < Slack::kTurns; ++turn) {
        const double total = InPixels(TotalOf(strips, turn, length), rowHeight);
        const double given = std::min(missing, total);
        gone_[static_cast<std::size_t>(turn)] = total > 0 ? given / total : 0;
        missing -= given;
    }
}

int ContentFit::Pixels(int position) const {
    double units = position;
    for (const Slack& strip : strips_) {
        units -= Before(strip, position) * gone_[static_cast<std::size_t>(strip.turn)];
    }
    return static_cast<int>(std::lround(InPixels(units, rowHeight_)));
}

int ContentFit::Least(int length, std::span<const Slack> strips, int rowHeight, int turns) {
    int units = length;
    for (int turn = 0; turn < turns; ++turn) {
        units -= TotalOf(strips, turn, length);
    }
    return PixelsOf(units, rowHeight);
}

} // namespace folimark

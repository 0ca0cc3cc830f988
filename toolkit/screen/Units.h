#pragma once

namespace folimark {

/// Whatever the application states of places and sizes, it states in units. A unit is one logical pixel at
/// the reference font; with any other font it is so large that a row of a list, and with it every caption's
/// room, has as many of them as there. Places on the screen and its size are told in units too.
inline constexpr int kUnitsPerRow = 16;

/// A strip of a window's content that gives way where the screen lacks room: the controls that it runs
/// through shrink, and those behind it move up. In units from the content's left or upper edge. The strips of
/// a turn all shrink in the same proportion, and those of a later turn only once the earlier ones have gone.
struct Slack {
    static constexpr int kTurns = 2;

    int from = 0;
    int to = 0;
    int turn = 0;
};

} // namespace folimark

#pragma once

#include <chrono>

/// From now on each question of this program about a file's status takes that much longer, as on a disk
/// across a network. Not so those that may be answered without asking the disk.
void SetAnswerDelay(std::chrono::microseconds delay);

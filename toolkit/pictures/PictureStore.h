#pragma once

#include "PictureReader.h"

#include <cstddef>
#include <list>
#include <map>

namespace folimark {

/// Pictures that have been read, within a bound of memory; those that were used last stay. A file that
/// couldn't be read is kept too, for it needn't be tried again.
class PictureStore {
  public:
    explicit PictureStore(std::size_t mostBytes) : mostBytes_(mostBytes) {}

    /// One that says nothing of the file, or is larger than a quarter of the bound, isn't kept.
    void Keep(const PictureQuestion& question, PictureReading reading);
    /// The reading of the very file that is there now, unchanged; null if there is none. Valid until the next
    /// call.
    const PictureReading* Find(const PictureQuestion& question);
    /// Is there a reading, be it of the file as it was?
    bool Has(const PictureQuestion& question) const { return byQuestion_.contains(question); }
    void Forget(const PictureQuestion& question);

  private:
    using Entry = std::pair<PictureQuestion, PictureReading>;

    std::size_t mostBytes_;
    std::size_t bytes_ = 0;
    std::list<Entry> entries_; // the one used last in front
    std::map<PictureQuestion, std::list<Entry>::iterator> byQuestion_;
};

} // namespace folimark

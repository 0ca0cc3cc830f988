#pragma once

#include <cstdint>
#include <string>

namespace folimark {

/// The view of a Listbox, which tells it of each change.
class NativeList {
  public:
    virtual void RowAdded() = 0;
    /// Before a row is removed, and after.
    virtual void BeginRemove(std::int64_t row) = 0;
    virtual void EndRemove() = 0;
    /// All rows have gone, or the columns are others.
    virtual void Reset() = 0;
    virtual void Sorted(int column, bool ascending) = 0;
    virtual void CellChanged(std::int64_t row, int column) = 0;
    virtual void ShowColumns(const std::string& widths) = 0;
    /// Brings the view's selection to the list's, and into sight.
    virtual void ShowSelection() = 0;
    virtual void MarksChanged() = 0;

  protected:
    ~NativeList() = default; // the window system's
};

} // namespace folimark

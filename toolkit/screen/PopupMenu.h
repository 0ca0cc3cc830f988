#pragma once

#include "RectControl.h"

#include <vector>

namespace folimark {

/// A menu of which one row is chosen. Rows count from 0; a ListIndex of -1 means that none is.
class PopupMenu : public RectControl {
  public:
    void AddRow(const std::string& text);
    void DeleteAllRows();
    int ListIndex() const { return listIndex_; }
    /// Chooses a row and raises Change. Raises OutOfBoundsException for a row that isn't there.
    void ListIndex(int row);

    std::function<void(PopupMenu&)> Change;

  protected:
    void MakeWidget(WindowFrame& frame) override;

  private:
    std::vector<std::string> rows_;
    int listIndex_ = -1;
};

} // namespace folimark

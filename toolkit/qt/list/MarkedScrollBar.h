#pragma once

#include <QScrollBar>

#include <cstdint>
#include <vector>

namespace folimark {

class Listbox;

/// A list's vertical scroll bar, with a mark at the place of each marked row.
class MarkedScrollBar : public QScrollBar {
  public:
    MarkedScrollBar(Listbox& list, QWidget* parent);

    void MarksChanged();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    QRect Groove() const;
    /// Finds the first marked row for each pixel of the groove, unless all is as it was.
    void FindMarks();

    Listbox& list_;
    std::vector<std::int64_t> rowAtPixel_; // -1 where there is none
    std::int64_t rowCount_ = 0;
    bool stale_ = false;
};

} // namespace folimark

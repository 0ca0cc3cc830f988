#pragma once

#include <QLabel>

namespace folimark {

/// A label for one line of plain text, which is shortened in the middle if it doesn't fit: the ends of a path
/// tell more than its middle. Then its help tag is the whole text.
class ElidedLabel : public QLabel {
  public:
    explicit ElidedLabel(QWidget* parent);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
};

} // namespace folimark

#pragma once

#include <QLabel>

namespace folimark {

/// A label for one line of plain text, which is shortened in the middle if it doesn't fit: the ends of a path
/// tell more than its middle.
class ElidedLabel : public QLabel {
  public:
    explicit ElidedLabel(QWidget* parent);

  protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace folimark

#pragma once

#include <QHeaderView>

namespace folimark {

/// The headings of a list. Their texts stand in line with those of the cells, whatever the desktop's style
/// keeps free beside a heading. They are as high as their text asks, and so much higher that the last row in
/// sight is whole or clearly cut.
class Headings : public QHeaderView {
  public:
    explicit Headings(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

    QSize sizeHint() const override;

  protected:
    void paintSection(QPainter* painter, const QRect& section, int column) const override;
    void initStyleOptionForIndex(QStyleOptionHeader* option, int column) const override;
};

} // namespace folimark

#pragma once

#include <QImage>
#include <QWidget>

#include <functional>

namespace folimark {

/// Shows an image from its top left corner.
class CanvasWidget : public QWidget {
  public:
    CanvasWidget(QWidget* parent, std::function<void(int x, int y)> doubleClick);

    /// A null image shows the window's own colour.
    void Show(const QImage& image, QSize size);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    std::function<void(int x, int y)> doubleClick_;
    QImage image_;
    QSize size_;
};

} // namespace folimark

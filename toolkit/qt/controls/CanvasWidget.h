#pragma once

#include <QImage>
#include <QTransform>
#include <QWidget>

#include <functional>

namespace folimark {

/// Shows an image from its top left corner.
class CanvasWidget : public QWidget {
  public:
    CanvasWidget(QWidget* parent, std::function<void(int x, int y)> doubleClick);

    /// A null image shows the window's own colour.
    void Show(const QImage& image, QSize size);
    /// The widget's size in units, in which those of images are told too. Where the widget has had to give
    /// way in one direction its content is drawn smaller in both, in the middle of the lower edge.
    void Measure(QSize units);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

  private:
    QTransform FromUnits() const;

    std::function<void(int x, int y)> doubleClick_;
    QImage image_;
    QSize size_;
    QSize units_;
};

} // namespace folimark

#pragma once

#include <QProxyStyle>

namespace folimark {

/// The desktop's style, but that
/// - each help tag comes after the same pause: a second one would come without;
/// - fields and buttons can be told from a black ground: their edges would be darker than that.
class DesktopStyle : public QProxyStyle {
  public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override;
};

} // namespace folimark

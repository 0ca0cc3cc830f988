#include "DesktopStyle.h"

#include <QPainter>
#include <QStyleOption>

namespace folimark {
namespace {

/// Grounds that are darker than this, of 255, count as black.
constexpr int kBlack = 24;
const QColor kEdge(0x80, 0x80, 0x80);

void DrawEdgeOnBlack(const QStyleOption& option, QPainter& painter) {
    const auto* button = qstyleoption_cast<const QStyleOptionButton*>(&option);
    const bool isDefault = button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton);
    // These have an edge in a colour of their own.
    const bool focused =
        option.state.testFlag(QStyle::State_HasFocus) && option.state.testFlag(QStyle::State_Enabled);
    if (!isDefault && !focused && option.palette.color(QPalette::Window).lightness() < kBlack) {
        painter.save();
        painter.setPen(kEdge);
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
        painter.restore();
    }
}

} // namespace

int DesktopStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* more) const {
    return hint == SH_ToolTip_FallAsleepDelay ? 0 : QProxyStyle::styleHint(hint, option, widget, more);
}

void DesktopStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                 const QWidget* widget) const {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_FrameLineEdit || element == PE_PanelButtonCommand) {
        DrawEdgeOnBlack(*option, *painter);
    }
}

void DesktopStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_ComboBox) {
        DrawEdgeOnBlack(*option, *painter);
    }
}

} // namespace folimark

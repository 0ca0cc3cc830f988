#include "FontMeasure.h"

#include "ContentFit.h"

#include <QApplication>
#include <QFontInfo>
#include <QFontMetrics>

#include <algorithm>
#include <cmath>

namespace folimark {
namespace {

const QString kSample = QStringLiteral("The quick brown fox jumps over the lazy dog.");
// Its width in the reference font, in logical pixels.
constexpr double kReferenceWidth = 273;

// Below this, in logical pixels, nobody can read.
constexpr int kLeastFont = 6;

} // namespace

int RowHeightIn(const QFont& font) {
    const QFontMetrics metrics(font);
    const long byWidth = std::lround(kUnitsPerRow * metrics.horizontalAdvance(kSample) / kReferenceWidth);
    return std::max(metrics.height(), static_cast<int>(byWidth));
}

int RowHeight() {
    const QFont plain = QApplication::font();
    int height = RowHeightIn(plain);
    for (const char* widget : {"QAbstractItemView", "QLabel", "QPushButton", "QToolButton"}) {
        if (const QFont font = QApplication::font(widget); font != plain) { // Most desktops have one for all.
            height = std::max(height, RowHeightIn(font));
        }
    }
    return height;
}

QFont FontForRows(int rowHeight) {
    QFont font = QApplication::font();
    for (int pixels = QFontInfo(font).pixelSize(); RowHeightIn(font) > rowHeight && pixels > kLeastFont;) {
        font.setPixelSize(--pixels);
    }
    return font;
}

} // namespace folimark

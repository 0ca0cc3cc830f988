#include "Screen.h"

#include "ContentFit.h"
#include "FontMeasure.h"

#include <QGuiApplication>
#include <QScreen>

namespace folimark {

int ScreenInfo::AvailableHeight() const {
    return QGuiApplication::primaryScreen()->availableSize().height() * kUnitsPerRow / RowHeight();
}

ScreenInfo Screen(int /*number*/) {
    return {};
}

bool CanPlaceWindows() {
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

} // namespace folimark

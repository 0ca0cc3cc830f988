#include "Screen.h"

#include <QGuiApplication>
#include <QScreen>

namespace folimark {

int ScreenInfo::AvailableHeight() const {
    return QGuiApplication::primaryScreen()->availableSize().height();
}

ScreenInfo Screen(int /*number*/) {
    return {};
}

bool CanPlaceWindows() {
    return !QGuiApplication::platformName().startsWith(QLatin1String("wayland"));
}

} // namespace folimark

#include "Keyboard.h"

#include <QGuiApplication>

namespace folimark {

bool Keyboard::ShiftKey() {
    return QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier);
}

} // namespace folimark

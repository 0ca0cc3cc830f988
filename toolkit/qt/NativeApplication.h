#pragma once

#include <QByteArray>
#include <QString>

namespace folimark {

/// The application's name for people. The window system isn't told it, since it would add it to every title.
const QString& DisplayName();

/// The window system's plugins to try, in their order, given what the environment says of the session; ""
/// leaves the choice to the window system. Most Wayland sessions serve the X protocol too, and it lets
/// windows be placed.
QByteArray PluginsFor(const QByteArray& waylandDisplay, const QByteArray& xDisplay, const QByteArray& chosen);

} // namespace folimark

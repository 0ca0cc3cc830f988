#pragma once

#include <QByteArray>
#include <QString>

class QDialog;

namespace folimark {

struct ApplicationIdentity;

/// The application's name for people. The window system isn't told it, since it would add it to every title.
const QString& DisplayName();

/// The window system's plugins to try, in their order, given what the environment says of the session; ""
/// leaves the choice to the window system. Most Wayland sessions serve the X protocol too, and it lets
/// windows be placed.
QByteArray PluginsFor(const QByteArray& waylandDisplay, const QByteArray& xDisplay, const QByteArray& chosen);

/// Makes the window system's own application object. Of the command line only the program's name is used.
void StartWindowSystem(char** arguments, const ApplicationIdentity& identity);

/// Shows a dialog of the window system's and blocks until it has been answered. No folder stays open
/// meanwhile.
/// \returns its result.
int RunDialog(QDialog& dialog);

} // namespace folimark

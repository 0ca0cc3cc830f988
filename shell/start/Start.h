#pragma once

namespace folimark {

/// The application's whole run, from the toolkit's start to its exit status. If the user already has one for
/// the same preferences folder, that one comes forward and this one ends with 0, or, if it doesn't answer,
/// says so and ends with 1. `arguments` are those of main: only the program's name is used.
int _Main(char** arguments);

/// Brings up all that exists before the event loop runs: the file types, the application object with its menu
/// bar, and the menu handlers of the application itself. The toolkit has to be up.
void _EarlyStartup();
void _LateStartup();

} // namespace folimark

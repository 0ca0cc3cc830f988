#pragma once

#include <QMessageBox>

#include <string>

namespace folimark {

/// A box under the application's name, with texts that may hold folders' names: these are no markup, and very
/// long ones are shortened in their middle. Longer texts make it wider, up to a limit.
class MessageBox : public QMessageBox {
  public:
    MessageBox(const std::string& message, const std::string& explanation);

    /// As RunDialog. Icon and buttons have to be set before.
    void Run();

  private:
    void FitWidth();
    /// Lets a text scroll that the screen may not have room for, as a call stack.
    void MakeScrollable();
};

} // namespace folimark

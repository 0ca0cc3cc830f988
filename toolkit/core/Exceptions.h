#pragma once

#include <exception>
#include <string>
#include <typeinfo>
#include <vector>

namespace folimark {

/// The name of a class without its namespace, such as "NilObjectException".
std::string ClassNameOf(const std::type_info& type);

/// A failure of the program or of its surroundings. It remembers the call stack of the place where it was
/// made, innermost call first.
class RuntimeException : public std::exception {
  public:
    /// `message` is a sentence for people who look for the cause; may be "".
    explicit RuntimeException(std::string message = "");

    /// The name of the exception's own class, such as "OutOfBoundsException".
    virtual std::string ClassName() const { return ClassNameOf(typeid(*this)); }
    const std::string& Message() const { return message_; }
    /// One line for each call, a function's name with its arguments where the binary knows it.
    const std::vector<std::string>& Stack() const { return stack_; }
    const char* what() const noexcept override { return message_.c_str(); }

  private:
    std::string message_;
    std::vector<std::string> stack_;
};

/// A member access through a nil handle.
class NilObjectException : public RuntimeException {
  public:
    /// `expected` is the name of the class that the handle should have held an object of.
    explicit NilObjectException(const std::string& expected);
};

/// A row of a list or an element of an array outside its bounds.
class OutOfBoundsException : public RuntimeException {
  public:
    using RuntimeException::RuntimeException;
};

/// Something was asked for by a name that nothing bears: a control, a menu item, a resource.
class NameNotFoundException : public RuntimeException {
  public:
    using RuntimeException::RuntimeException;
};

/// Input or output failed: a full disk, a folder that may not be read. What is in memory is sound, so a
/// command that fails in this way leaves the application running.
class IOException : public RuntimeException {
  public:
    using RuntimeException::RuntimeException;
    /// Builds the message from what was tried, on what, and the system's error number (`errno`).
    IOException(const std::string& what, const std::string& path, int errorNumber);
    /// A file could not be given its new content. All that has been read before is there.
    static IOException OfSaving(const std::string& path, int errorNumber);
    bool IsOfSaving() const { return isOfSaving_; }

  private:
    bool isOfSaving_ = false;
};

/// Ends a command quietly: its window has gone, or the application is ending. No error, and never shown.
class EndException : public std::exception {};

/// An exception that isn't one of ours (a std::bad_alloc, say), as the handler of last resort gets it: it
/// bears the foreign class's name, and the stack of the place where it was caught.
class ForeignException : public RuntimeException {
  public:
    explicit ForeignException(const std::exception& foreign);
    std::string ClassName() const override { return name_; }

  private:
    std::string name_;
};

} // namespace folimark

#pragma once

#include "Robot.h"
#include "aCatalogsWindow.h"

#include <functional>
#include <string>
#include <vector>

namespace folimark::test {

/// The application, from its start until this object ends: a fresh one each time, in the home folder that the
/// environment names. What it opens on the desktop is noted and not opened.
class RunningApplication {
  public:
    RunningApplication();
    RunningApplication(const RunningApplication&) = delete;
    RunningApplication& operator=(const RunningApplication&) = delete;
    ~RunningApplication();

    Ref<aCatalogsWindow> Albums() const;
    /// The window of the album in that row, which has to be open.
    Ref<aListWindow> Album(int row) const;
    /// Adds the album of a folder through the dialog, and opens it.
    void AddAlbum(const std::string& path) const;
    Ref<aListWindow> AddAndOpenAlbum(const std::string& path) const;

    /// The labels of the albums, joined by ", "; "*" follows those whose window is open.
    std::string Labels() const;
    /// The album list file, with the lines' ends as they are.
    static std::string ListFile();
    static void WriteListFile(const std::string& content);

    /// Native paths.
    static const std::vector<std::string>& Launched();
};

/// Runs the application in its own event loop, from its start to its end, as `main` does. `script` is called
/// when the Albums window is up. \returns the exit status.
int RunToEnd(const std::function<void()>& script);

/// Calls `action` once, in the next yield in which `when` holds; no yield is left out meanwhile. If none
/// comes while this object lives, that is a failure.
class DuringYield {
  public:
    explicit DuringYield(
        std::function<void()> action, std::function<bool()> when = [] { return true; });
    DuringYield(const DuringYield&) = delete;
    DuringYield& operator=(const DuringYield&) = delete;
    ~DuringYield();

  private:
    void Yield();

    std::function<void()> action_;
    std::function<bool()> when_;
    std::function<void()> handler_;
};

/// The same in the next yield of an album's scan.
class DuringScan : public DuringYield {
  public:
    explicit DuringScan(const std::function<void(const Ref<aListWindow>&)>& action);
};

/// The first cells of all rows, joined by ", ".
std::string Names(const Ref<Listbox>& list);

} // namespace folimark::test

#pragma once

#include "Descriptor.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace folimark {

/// The way to a folder, in which the items of that folder share. It is only names: the folder need not exist.
class Place {
  public:
    /// A folder at an absolute native path without a final "/"; "" is the root.
    explicit Place(std::string nativePath) : name_(std::move(nativePath)) {}
    /// A folder by its name in another one. What was listed as a folder there is found as one only: a link
    /// that has taken its name since isn't followed.
    Place(std::shared_ptr<const Place> parent, std::string name, bool listed)
        : parent_(std::move(parent)), name_(std::move(name)), listed_(listed) {}
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;
    ~Place();

    /// Null where the place was made from a whole path.
    const std::shared_ptr<const Place>& Parent() const { return parent_; }
    const std::string& Name() const { return name_; }
    std::string NativePath() const;
    /// With its final ":".
    const std::string& ColonPath() const;

    /// Opens the folder only for finding things in it (O_PATH). None, with errno set, on failure.
    Descriptor Open() const;
    /// The same by its name, where the parent is open.
    Descriptor OpenIn(int parent) const;

  private:
    mutable std::shared_ptr<const Place> parent_; // mutable for the destructor of a place below only
    std::string name_;
    bool listed_ = false;
    mutable std::string colonPath_; // made at the first question
};

/// Opens a folder only for finding things in it (O_PATH), whatever the length of its path. Links are
/// followed. None, with errno set, on failure.
Descriptor OpenFolderPath(std::string_view nativePath);

/// The place of a folder's colon path, the one that was opened last if it is that; null if it can't be a
/// path.
std::shared_ptr<const Place> PlaceOfColonPath(std::string_view colonPath);

/// Calls `call(descriptor)`, which returns -1 and sets errno on failure, with the opened folder, and returns
/// what it returned; -1 if the folder can't be opened. The folder stays open until another one is needed. If
/// that has aged, so that the call finds nothing there, it is opened afresh by its path for a second try.
int WithFolder(const std::shared_ptr<const Place>& place, const std::function<int(int descriptor)>& call);

} // namespace folimark

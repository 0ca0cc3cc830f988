#include "FileReplacement.h"

#include "Descriptor.h"
#include "Exceptions.h"
#include "NativePath.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdio>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace folimark {
namespace {

/// As many as the system itself follows.
constexpr int kMostLinks = 40;

/// The names of the new files: this, and 16 hexadecimal digits.
constexpr std::string_view kTemporary = ".folimark-";
constexpr int kDigits = 16;

bool IsTemporary(std::string_view name) {
    return name.starts_with(kTemporary) && name.size() == kTemporary.size() + kDigits
           && name.find_first_not_of("0123456789abcdef", kTemporary.size()) == std::string_view::npos;
}

/// Does the error say no more than that the file system doesn't know such a call? Then no file there has what
/// was asked for.
bool IsUnknownHere(int error) {
    return error == ENOSYS || error == EOPNOTSUPP || error == EINVAL;
}

struct CloseStream {
    void operator()(DIR* stream) const { closedir(stream); }
};

/// One replacement, with its steps in the order in which they are taken.
class Replacement {
  public:
    explicit Replacement(const std::string& path) : path_(path), name_(NameOfPath(path)) {}
    Replacement(const Replacement&) = delete;
    Replacement& operator=(const Replacement&) = delete;
    ~Replacement() {
        if (!temporary_.empty()) {
            unlinkat(folder_.Get(), temporary_.c_str(), 0);
        }
    }

    enum class Missing : std::uint8_t { IsMade, Fails };
    void OpenFolder(Missing folders);
    void FollowLinks();
    void CheckOldFile();
    void Write(std::string_view text);
    void TakeTheName();
    /// Removes the new files of others that were cut short, in the folder that was reached last.
    void RemoveLeftovers() const;

  private:
    [[noreturn]] void Fail(int error) const { throw IOException::OfSaving(path_, error); }
    void Check(bool done) const {
        if (!done) {
            Fail(errno);
        }
    }

    const std::string& path_;
    Descriptor folder_;
    std::string name_;
    std::optional<struct stat> old_;
    std::string temporary_; // "" when there is none to remove
};

void Replacement::OpenFolder(Missing folders) {
    const std::string folder = FolderOfPath(path_);
    folder_ = OpenFolderPath(folder, O_PATH);
    if (!folder_ && errno == ENOENT && folders == Missing::IsMade) {
        for (std::size_t end = 0; end != std::string::npos;) {
            end = folder.find('/', end + 1);
            Check(mkdir(folder.substr(0, end).c_str(), S_IRWXU) == 0 || errno == EEXIST);
        }
        folder_ = OpenFolderPath(folder, O_PATH);
    }
    Check(static_cast<bool>(folder_));
}

void Replacement::FollowLinks() {
    std::array<char, PATH_MAX> target{};
    for (int links = 0;; ++links) {
        const ssize_t length = readlinkat(folder_.Get(), name_.c_str(), target.data(), target.size());
        if (length < 0 && (errno == EINVAL || errno == ENOENT)) {
            return; // no link, or nothing at all
        }
        Check(length >= 0);
        if (links == kMostLinks) {
            Fail(ELOOP);
        }
        const std::string path(target.data(), static_cast<std::size_t>(length));
        name_ = NameOfPath(path);
        if (name_.empty() || name_ == "." || name_ == "..") {
            Fail(EISDIR);
        }
        if (path.find('/') != std::string::npos) {
            const std::string folder = FolderOfPath(path) + "/";
            folder_ = Descriptor(openat(folder_.Get(), folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
            Check(static_cast<bool>(folder_));
        }
    }
}

void Replacement::CheckOldFile() {
    struct stat status {};
    if (fstatat(folder_.Get(), name_.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        Check(errno == ENOENT);
        return;
    }
    if (!S_ISREG(status.st_mode)) {
        Fail(S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
    }
    // The renaming would pass over the write protection of the file itself.
    Check(faccessat(folder_.Get(), name_.c_str(), W_OK, AT_EACCESS) == 0);
    old_ = status;
}

void Replacement::Write(std::string_view text) {
    Descriptor file;
    do {
        std::uint64_t number = 0;
        Check(getrandom(&number, sizeof number, 0) == ssize_t{sizeof number});
        std::array<char, 32> name{};
        std::snprintf(name.data(), name.size(), "%s%0*jx", kTemporary.data(), kDigits,
                      std::uintmax_t{number});
        file = Descriptor(
            openat(folder_.Get(), name.data(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR));
        temporary_ = file ? name.data() : "";
    } while (!file && errno == EEXIST);
    Check(static_cast<bool>(file));

    while (!text.empty()) {
        const ssize_t written = write(file.Get(), text.data(), text.size());
        Check(written >= 0 || errno == EINTR);
        text.remove_prefix(written < 0 ? 0 : static_cast<std::size_t>(written));
    }
    if (old_) {
        // Another owner can be kept by the superuser only, who must not take the file away from the user.
        Check(fchown(file.Get(), old_->st_uid, old_->st_gid) == 0 || errno == EPERM || IsUnknownHere(errno));
        Check(fchmod(file.Get(), old_->st_mode & (S_IRWXU | S_IRWXG | S_IRWXO)) == 0 || IsUnknownHere(errno));
    }
    Check(fsync(file.Get()) == 0 || IsUnknownHere(errno));
    Check(file.Close() == 0);
}

void Replacement::TakeTheName() {
    Check(renameat(folder_.Get(), temporary_.c_str(), folder_.Get(), name_.c_str()) == 0);
    temporary_.clear();
    // A folder that may not be read can't be synced by us, and some file systems don't know how to.
    const Descriptor folder(openat(folder_.Get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    Check(!folder || fsync(folder.Get()) == 0 || IsUnknownHere(errno));
}

void Replacement::RemoveLeftovers() const {
    Descriptor folder(openat(folder_.Get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, CloseStream> stream(folder ? fdopendir(folder.Get()) : nullptr);
    if (!stream) {
        return;
    }
    const int descriptor = folder.Release(); // the stream's own now
    while (const dirent* const entry = readdir(stream.get())) {
        struct stat status {};
        if (IsTemporary(entry->d_name)
            && fstatat(descriptor, entry->d_name, &status, AT_SYMLINK_NOFOLLOW) == 0
            && S_ISREG(status.st_mode) && status.st_uid == geteuid()) {
            unlinkat(descriptor, entry->d_name, 0);
        }
    }
}

} // namespace

void ReplaceFile(const std::string& path, std::string_view text) {
    Replacement replacement(path);
    replacement.OpenFolder(Replacement::Missing::IsMade);
    replacement.FollowLinks();
    replacement.CheckOldFile();
    replacement.Write(text);
    replacement.TakeTheName();
}

void RemoveLeftovers(const std::string& path) {
    Replacement replacement(path);
    try {
        replacement.OpenFolder(Replacement::Missing::Fails);
        replacement.RemoveLeftovers();
        replacement.FollowLinks();
        replacement.RemoveLeftovers();
    } catch (const IOException&) { // NOLINT(bugprone-empty-catch): where nothing is reached nothing is left
    }
}

} // namespace folimark

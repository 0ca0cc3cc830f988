#include "Landlock.h"

#include "Descriptor.h"

#include <cstdint>
#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/stat.h>
#include <sys/syscall.h>

namespace folimark {
namespace {

/// The kernel's structure, with what the system's own headers may not know yet. The kernel takes a longer one
/// than its own if the rest is 0.
struct Rules {
    std::uint64_t files;   // handled_access_fs
    std::uint64_t network; // handled_access_net
    std::uint64_t scopes;  // scoped
};

/// Something that is taken away, from the version of the interface on that knows it. Linking and moving into
/// other folders, which version 2 has of its own, is taken away in any case.
struct Access {
    int version;
    std::uint64_t Rules::*kind;
    std::uint64_t bits;
};

constexpr std::uint64_t kReading = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;
constexpr Access kTakenAway[] = {
    {1, &Rules::files,
     kReading | LANDLOCK_ACCESS_FS_EXECUTE | LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_REMOVE_DIR
         | LANDLOCK_ACCESS_FS_REMOVE_FILE | LANDLOCK_ACCESS_FS_MAKE_CHAR | LANDLOCK_ACCESS_FS_MAKE_DIR
         | LANDLOCK_ACCESS_FS_MAKE_REG | LANDLOCK_ACCESS_FS_MAKE_SOCK | LANDLOCK_ACCESS_FS_MAKE_FIFO
         | LANDLOCK_ACCESS_FS_MAKE_BLOCK | LANDLOCK_ACCESS_FS_MAKE_SYM},
    {3, &Rules::files, 1U << 14},   // to truncate
    {4, &Rules::network, 3},        // to bind and to connect TCP sockets
    {5, &Rules::files, 1U << 15},   // commands to devices
    {6, &Rules::scopes, 1 | 1 << 1} // abstract sockets, and signals
};

void Allow(int ruleset, const std::string& path) {
    const Descriptor opened(open(path.c_str(), O_PATH | O_CLOEXEC));
    struct stat status {};
    if (!opened || fstat(opened.Get(), &status) != 0) {
        return;
    }
    landlock_path_beneath_attr rule{};
    rule.allowed_access = S_ISDIR(status.st_mode) ? kReading : LANDLOCK_ACCESS_FS_READ_FILE;
    rule.parent_fd = opened.Get();
    syscall(SYS_landlock_add_rule, ruleset, LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
}

} // namespace

int LandlockVersion() {
    const auto version =
        static_cast<int>(syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION));
    return version > 0 ? version : 0;
}

bool AllowReadingOnly(std::span<const std::string> readable, int version) {
    Rules rules{};
    for (const Access& access : kTakenAway) {
        if (access.version <= version) {
            rules.*access.kind |= access.bits;
        }
    }
    const Descriptor ruleset(static_cast<int>(syscall(SYS_landlock_create_ruleset, &rules, sizeof rules, 0)));
    if (!ruleset) {
        return false;
    }
    for (const std::string& path : readable) {
        Allow(ruleset.Get(), path);
    }
    return syscall(SYS_landlock_restrict_self, ruleset.Get(), 0) == 0;
}

} // namespace folimark

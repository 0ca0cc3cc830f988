#include "CallStack.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <cxxabi.h>
#include <dlfcn.h>
#include <elf.h>
#include <execinfo.h>
#include <link.h>
#include <memory>

namespace folimark {
namespace {

// Deeper stacks are cut off: what lies below the event loop says nothing about the fault.
constexpr int kMostFrames = 64;
/// CallStack itself, and the constructors of an exception and its bases, are among that many frames.
constexpr int kMostOwnFrames = 6;

std::string Hexadecimal(std::uintptr_t value) {
    std::array<char, 2 + 2 * sizeof value + 1> digits{};
    std::snprintf(digits.data(), digits.size(), "0x%zx", static_cast<std::size_t>(value));
    return digits.data();
}

std::string FrameName(void* address) {
    Dl_info info{};
    const ElfW(Sym)* symbol = nullptr;
    const bool known =
        dladdr1(address, &info, const_cast<void**>(reinterpret_cast<const void**>(&symbol)), RTLD_DL_SYMENT)
        != 0;
    const auto location = reinterpret_cast<std::uintptr_t>(address);
    if (!known) {
        return Hexadecimal(location);
    }
    // The nearest exported symbol is only right if the address lies inside it.
    if (info.dli_sname != nullptr && symbol != nullptr
        && location - reinterpret_cast<std::uintptr_t>(info.dli_saddr) <= symbol->st_size) {
        return Demangled(info.dli_sname);
    }
    const char* slash = std::strrchr(info.dli_fname, '/');
    return std::string(slash == nullptr ? info.dli_fname : slash + 1) + "+"
           + Hexadecimal(location - reinterpret_cast<std::uintptr_t>(info.dli_fbase));
}

bool IsOwnFrame(const std::string& name) {
    // A constructor's name repeats its class: "NilObjectException::NilObjectException(...)".
    return name.find("folimark::CallStack") == 0 || name.find("Exception::") != std::string::npos;
}

} // namespace

std::string Demangled(const char* symbol) {
    int status = 0;
    const std::unique_ptr<char, decltype(&std::free)> name(
        abi::__cxa_demangle(symbol, nullptr, nullptr, &status), &std::free);
    return status == 0 && name ? name.get() : symbol;
}

std::vector<std::string> CallStack() {
    std::array<void*, kMostFrames> addresses{};
    const int count = backtrace(addresses.data(), kMostFrames);
    std::vector<std::string> lines;
    for (int i = 0; i < count; ++i) {
        std::string name = FrameName(addresses[static_cast<std::size_t>(i)]);
        if (i < kMostOwnFrames && IsOwnFrame(name)) {
            lines.clear(); // What stands above it, a checking tool's frame say, is ours too.
        } else {
            lines.push_back(std::move(name));
        }
    }
    return lines;
}

} // namespace folimark

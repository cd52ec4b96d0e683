// SPDX-License-Identifier: MIT
// Preloaded into a program on Linux, this lets one of its calls fail that concern FAULT_FOLDER or what is in it: the
// FAULT_CALLth, counted from 1. FAULT_HOW tells how: a number of errno; "short", half of what is to be written; "kill",
// the program is killed before it; or a loss of power just before the call, or at the end if there are fewer calls:
// "drop" empties the files whose content was not synced, "undo" takes back a rename, too, that the folder was not
// synced after. Its name is written to the file FAULT_REPORT, or "none" if none failed.
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <set>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

std::string setting(const char* name)
{
    const char* value = std::getenv(name);
    return value ? value : "";
}

struct State
{
    const std::string folder = setting("FAULT_FOLDER"), how = setting("FAULT_HOW");
    const std::string report = setting("FAULT_REPORT"), old = report + ".old";
    int callsLeft = std::atoi(setting("FAULT_CALL").c_str());
    bool hasFailed = false;
    std::set<std::string> unsynced;
    std::string renamed; // to this name, while the folder is not synced
};

State& state()
{
    static auto& state = *new State;
    return state;
}

template <typename... Arguments> long call(long number, Arguments... arguments)
{
    return syscall(number, (long)arguments...);
}

void report(const std::string& text)
{
    const long file = call(SYS_openat, AT_FDCWD, state().report.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    call(SYS_write, file, text.c_str(), text.size());
    call(SYS_close, file);
}

/// False if the fault is another one.
bool losePower()
{
    if (state().how == "kill")
        return true;
    if (state().how != "drop" && state().how != "undo")
        return false;
    if (state().how == "undo" && !state().renamed.empty())
        call(SYS_renameat2, AT_FDCWD, state().old.c_str(), AT_FDCWD, state().renamed.c_str(), 0);
    for (const std::string& path : state().unsynced)
        call(SYS_truncate, path.c_str(), 0);
    return true;
}

[[gnu::destructor]] void end()
{
    if (state().hasFailed)
        return;
    losePower();
    report("none");
}

std::string pathOf(int file)
{
    char path[4096] = {};
    const std::string link = "/proc/self/fd/" + std::to_string(file);
    return call(SYS_readlinkat, AT_FDCWD, link.c_str(), path, sizeof path - 1) > 0 ? path : "";
}

bool concerns(const std::string& path)
{
    return !state().folder.empty() && path.starts_with(state().folder);
}

bool fails(const char* name, const std::string& path)
{
    if (!concerns(path))
        return false;
    const bool isShort = state().how == "short";
    if ((isShort && std::string(name) != "write") || --state().callsLeft != 0)
        return false;
    state().hasFailed = true;
    report(name);
    if (losePower())
        kill(getpid(), SIGKILL);
    errno = std::atoi(state().how.c_str());
    return true;
}

template <typename... Arguments> int run(const char* name, const std::string& path, Arguments... arguments)
{
    return fails(name, path) ? -1 : int(call(arguments...));
}

} // namespace

// These stand before those of the C library, which declares some of them otherwise; hence the other names.
extern "C" {
int openFile(const char* path, int flags, mode_t mode) asm("open");
int openFile(const char* path, int flags, mode_t mode)
{
    const int file = run("open", path, SYS_openat, AT_FDCWD, path, flags, mode);
    if (file >= 0 && (flags & O_TRUNC) != 0 && concerns(path))
        state().unsynced.insert(path);
    return file;
}

[[gnu::alias("open")]] int openLargeFile(const char* path, int flags, mode_t mode) asm("open64");

ssize_t write(int file, const void* bytes, size_t size)
{
    const std::string path = pathOf(file);
    if (fails("write", path)) {
        if (state().how != "short")
            return -1;
        size = (size + 1) / 2;
    }
    if (concerns(path))
        state().unsynced.insert(path);
    return call(SYS_write, file, bytes, size);
}

int fsync(int file)
{
    const std::string path = pathOf(file);
    const int result = run("fsync", path, SYS_fsync, file);
    state().unsynced.erase(path);
    if (state().renamed.starts_with(path + '/'))
        state().renamed.clear();
    return result;
}

int close(int file)
{
    const std::string path = pathOf(file);
    const long result = call(SYS_close, file);
    return fails("close", path) ? -1 : int(result);
}

int fchmod(int file, mode_t mode) noexcept
{
    return run("fchmod", pathOf(file), SYS_fchmod, file, mode);
}

int rename(const char* from, const char* to) noexcept
{
    if (fails("rename", to))
        return -1;
    if (concerns(to)) {
        call(SYS_unlinkat, AT_FDCWD, state().old.c_str(), 0);
        call(SYS_linkat, AT_FDCWD, to, AT_FDCWD, state().old.c_str(), 0);
        state().renamed = to;
        if (state().unsynced.erase(from) > 0)
            state().unsynced.insert(to);
    }
    return int(call(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

int access(const char* path, int mode) noexcept
{
    return run("access", path, SYS_faccessat, AT_FDCWD, path, mode);
}

int stat(const char* path, struct stat* status) noexcept
{
    return run("stat", path, SYS_newfstatat, AT_FDCWD, path, status, 0);
}

int lstat(const char* path, struct stat* status) noexcept
{
    return run("lstat", path, SYS_newfstatat, AT_FDCWD, path, status, AT_SYMLINK_NOFOLLOW);
}
}

// SPDX-License-Identifier: MIT
#include <curveeditor/files/FreshFile.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string>
#include <system_error>
#include <thread>
#include <utility>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t longestPlainPath = 200;   // names beside it have to be short enough, too
constexpr std::size_t longestWrite = 1U << 30U; // bytes in one call
constexpr int mostTries = 10;                   // while another program looks at the file
constexpr std::chrono::milliseconds pause(20);
constexpr DWORD allSharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::wstring_view longStart = L"\\\\?\\";

[[noreturn]] void failBy(DWORD error)
{
    throw std::system_error(int(error), std::system_category());
}

void require(bool isDone)
{
    if (!isDone)
        failBy(::GetLastError());
}

[[noreturn]] void fail(std::errc error)
{
    throw std::system_error(std::make_error_code(error));
}

class Handle
{
public:
    explicit Handle(HANDLE handle) : handle_(handle) { require(handle != INVALID_HANDLE_VALUE); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle()
    {
        if (handle_ != INVALID_HANDLE_VALUE)
            ::CloseHandle(handle_);
    }

    HANDLE get() const { return handle_; }
    void close() { require(::CloseHandle(std::exchange(handle_, INVALID_HANDLE_VALUE)) != 0); }

private:
    HANDLE handle_;
};

/// A path that may have more characters than the 260 of old.
fs::path extended(const fs::path& path)
{
    if (path.native().size() <= longestPlainPath ||
        path.native().compare(0, longStart.size(), longStart) == 0)
        return path;
    std::wstring name(1, L'\0');
    const DWORD size = ::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    require(size > 0);
    name.resize(size);
    name.resize(::GetFullPathNameW(path.c_str(), size, name.data(), nullptr));
    const bool isOnServer = name.compare(0, 2, L"\\\\") == 0;
    return isOnServer ? std::wstring(longStart) + L"UNC" + name.substr(1) : std::wstring(longStart) + name;
}

/// `INVALID_FILE_ATTRIBUTES` where there is no file.
DWORD attributesOf(const fs::path& path)
{
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES)
        return attributes;
    const DWORD error = ::GetLastError();
    if (error != ERROR_FILE_NOT_FOUND)
        failBy(error);
    return attributes;
}

/// Asks first whether the old file may go, so that the work is not left half done.
bool tryToMove(const fs::path& fresh, const fs::path& target)
{
    const HANDLE old = ::CreateFileW(target.c_str(), DELETE, allSharing, nullptr, OPEN_EXISTING, 0, nullptr);
    const bool isThere = old != INVALID_HANDLE_VALUE;
    if (isThere)
        ::CloseHandle(old);
    else if (::GetLastError() != ERROR_FILE_NOT_FOUND)
        return false;
    // The first keeps what the old file has besides its content; not every file system knows it.
    return (isThere && ::ReplaceFileW(target.c_str(), fresh.c_str(), nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS,
                                      nullptr, nullptr) != 0) ||
           ::MoveFileExW(fresh.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) !=
               0;
}

bool mayPass(DWORD error)
{
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION || error == ERROR_ACCESS_DENIED;
}

} // namespace

namespace curveeditor {

fs::path FreshFile::target(const fs::path& path)
{
    const fs::path plain = extended(path);
    const DWORD attributes = ::GetFileAttributesW(plain.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return plain;
    const Handle file(::CreateFileW(plain.c_str(), 0, allSharing, nullptr, OPEN_EXISTING,
                                    FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    std::wstring name(::GetFinalPathNameByHandleW(file.get(), nullptr, 0, 0), L'\0');
    const DWORD size = ::GetFinalPathNameByHandleW(file.get(), name.data(), DWORD(name.size()), 0);
    require(size > 0 && size < name.size());
    name.resize(size);
    return name;
}

void FreshFile::requireReplaceable(const fs::path& target)
{
    const DWORD attributes = attributesOf(target);
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return;
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0)
        fail(std::errc::is_a_directory);
    if ((attributes & FILE_ATTRIBUTE_DEVICE) != 0)
        fail(std::errc::invalid_argument);
    if ((attributes & FILE_ATTRIBUTE_READONLY) != 0)
        fail(std::errc::permission_denied);
}

void FreshFile::write(const fs::path& fresh, const fs::path& old, std::string_view content)
{
    constexpr DWORD kept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;
    const DWORD oldAttributes = attributesOf(old);
    const DWORD attributes = oldAttributes == INVALID_FILE_ATTRIBUTES ? 0 : oldAttributes & kept;
    Handle file(::CreateFileW(fresh.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                              attributes != 0 ? attributes : FILE_ATTRIBUTE_NORMAL, nullptr));
    while (!content.empty()) {
        DWORD written = 0;
        const auto size = DWORD(std::min(content.size(), longestWrite));
        require(::WriteFile(file.get(), content.data(), size, &written, nullptr) != 0);
        content.remove_prefix(written);
    }
    require(::FlushFileBuffers(file.get()) != 0);
    file.close();
}

void FreshFile::discard(const fs::path& fresh)
{
    ::DeleteFileW(fresh.c_str());
}

void FreshFile::moveOnto(const fs::path& fresh, const fs::path& target)
{
    for (int i = 1; !tryToMove(fresh, target); ++i) {
        const DWORD error = ::GetLastError();
        if (!mayPass(error) || i == mostTries)
            failBy(error);
        std::this_thread::sleep_for(pause);
    }
}

void FreshFile::syncFolderOf(const fs::path&, const std::error_category&) {} // moving did it

bool FreshFile::isForgotten(const fs::path& path)
{
    constexpr std::uint64_t day = 24ULL * 60 * 60 * 10'000'000; // in units of 100 nanoseconds
    const auto number = [](const FILETIME& time) {
        return std::uint64_t(time.dwHighDateTime) << 32U | time.dwLowDateTime;
    };
    WIN32_FILE_ATTRIBUTE_DATA data{};
    FILETIME now{};
    ::GetSystemTimeAsFileTime(&now);
    return ::GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &data) != 0 &&
           (data.dwFileAttributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) == 0 &&
           number(data.ftLastWriteTime) + day < number(now);
}

} // namespace curveeditor

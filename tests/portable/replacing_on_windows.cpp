// SPDX-License-Identifier: MIT

// Files that are replaced where others lock them, forbid it, or give them long and odd names.

#include "Require.h"

#include <curveeditor/files/FileReplacement.h>

#include <chrono>
#include <random>
#include <string>
#include <thread>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

namespace fs = std::filesystem;

namespace {

constexpr DWORD allSharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

fs::path folder;

HANDLE opened(const fs::path& path, DWORD access, DWORD sharing, DWORD way = OPEN_EXISTING)
{
    const HANDLE file =
        ::CreateFileW(path.c_str(), access, sharing, nullptr, way, FILE_ATTRIBUTE_NORMAL, nullptr);
    require(file != INVALID_HANDLE_VALUE);
    return file;
}

std::string contentOf(const fs::path& path)
{
    const HANDLE file = opened(path, GENERIC_READ, allSharing);
    std::string content(100, '\0');
    DWORD size = 0;
    require(::ReadFile(file, content.data(), DWORD(content.size()), &size, nullptr) != 0);
    ::CloseHandle(file);
    content.resize(size);
    return content;
}

std::ptrdiff_t filesIn(const fs::path& path)
{
    return std::distance(fs::directory_iterator(path), fs::directory_iterator());
}

void saves(const fs::path& path, const char* content)
{
    require(!FileReplacement::write(path, content));
    require(contentOf(path) == content);
}

void refuses(const fs::path& path, int line = __builtin_LINE())
{
    const auto before = filesIn(folder);
    const std::error_code fault = FileReplacement::write(path, "lost");
    require(fault && !FileReplacement::isSaved(fault) && !fault.message().empty(), "refusal at", line);
    require(filesIn(folder) == before, "litter at", line);
}

void checkNames()
{
    const fs::path odd = folder / L"Gr\u00F6\u00DFe \u66F2\u7DDA \U0001F600.crv";
    saves(odd, "new");
    saves(odd, "newer\n");
    require(filesIn(folder) == 1);
    fs::path deep = LR"(\\?\)" + folder.native();
    for (int i = 0; i < 6; ++i) {
        deep /= std::wstring(60, L'd');
        require(::CreateDirectoryW(deep.c_str(), nullptr) != 0);
    }
    const fs::path plain = (deep / L"long.crv").native().substr(4);
    for (const char* content : {"new", "newer"}) {
        require(!FileReplacement::write(plain, content));
        require(contentOf(deep / L"long.crv") == content);
    }
}

void checkRefusals()
{
    refuses(folder);
    refuses(folder / "none" / "a.crv");
    const fs::path path = folder / "read only.crv";
    saves(path, "old");
    require(::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY) != 0);
    refuses(path);
    require(contentOf(path) == "old");
    require(::SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_HIDDEN) != 0);
    saves(path, "new");
    require((::GetFileAttributesW(path.c_str()) & FILE_ATTRIBUTE_HIDDEN) != 0);
}

void checkLocks()
{
    const fs::path path = folder / "locked.crv";
    saves(path, "old");
    const HANDLE lock = opened(path, GENERIC_READ, FILE_SHARE_READ);
    refuses(path);
    require(contentOf(path) == "old");
    std::thread passing([lock] {
        std::this_thread::sleep_for(std::chrono::milliseconds(60));
        ::CloseHandle(lock);
    });
    saves(path, "new"); // as soon as the other program has gone
    passing.join();
    const HANDLE reader = opened(path, GENERIC_READ, allSharing);
    saves(path, "newer");
    ::CloseHandle(reader);
}

void checkLeftovers()
{
    const fs::path other = folder / "other";
    require(fs::create_directory(other));
    for (const char* name : {".curve-1-2", ".curve-1-x", ".curve-3-4"})
        saves(other / name, "left");
    for (const char* name : {".curve-1-2", ".curve-1-x"}) {
        const HANDLE file = opened(other / name, GENERIC_WRITE, 0);
        const FILETIME longAgo{0, 0x01D00000};
        require(::SetFileTime(file, nullptr, nullptr, &longAgo) != 0);
        ::CloseHandle(file);
    }
    saves(folder / "between.crv", "new");
    saves(other / "a.crv", "new");
    require(!fs::exists(other / ".curve-1-2"));
    require(fs::exists(other / ".curve-1-x") && fs::exists(other / ".curve-3-4"));
}

} // namespace

int main()
{
    folder = fs::temp_directory_path() / ("curves-" + std::to_string(std::random_device()()));
    require(fs::create_directory(folder));
    checkNames();
    checkRefusals();
    checkLocks();
    checkLeftovers();
    std::error_code ignored;
    fs::remove_all(folder, ignored);
    return EXIT_SUCCESS;
}

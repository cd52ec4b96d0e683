// SPDX-License-Identifier: MIT
#include "TextFiles.h"

#include "Fault.h"
#include "Progress.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <istream>
#include <memory>
#include <ostream>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t blockSize = std::size_t(1) << 20;
constexpr int mostNamesTried = 100;
constexpr int mostLinks = 40;

[[noreturn]] void fail(const std::string& path, const std::string& reason)
{
    throw Fault(TextFiles::shownName(path) + ": " + reason);
}

[[noreturn]] void failBySystem(const std::string& path, int error)
{
    fail(path, error != 0 ? std::generic_category().message(error) : "could not be used");
}

struct Closer
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, Closer>;

std::string readStream(const std::string& path, std::istream& in, std::size_t expected, Progress& progress)
{
    std::string text;
    while (in) {
        const std::size_t size = text.size();
        text.resize(size + blockSize);
        in.read(text.data() + size, std::streamsize(blockSize));
        text.resize(size + std::size_t(in.gcount()));
        if (text.size() > TextFiles::mostBytes)
            fail(path, "is larger than " + std::to_string(TextFiles::mostBytes >> 20) + " MiB");
        progress.at(text.size(), std::max(expected, text.size()));
    }
    if (in.bad())
        failBySystem(path, errno);
    return text;
}

void writeContent(const std::string& path, std::FILE* file, std::string_view content)
{
    if (std::fwrite(content.data(), 1, content.size(), file) != content.size() || std::fflush(file) != 0)
        failBySystem(path, errno);
}

File openToWrite(const std::string& path, const std::string& name, const char* mode)
{
    errno = 0;
    File file(std::fopen(name.c_str(), mode));
    if (!file)
        failBySystem(path, errno);
    return file;
}

// Where the links end, be there a file or not.
fs::path behindLinks(fs::path path)
{
    std::error_code error;
    for (int i = 0; i < mostLinks && fs::is_symlink(path, error); ++i)
        path = path.parent_path() / fs::read_symlink(path, error);
    return path;
}

// A new file beside the one of that name.
File makeBeside(const std::string& path, const fs::path& target, fs::path& made)
{
    for (int i = 0; i < mostNamesTried; ++i) {
        made = target;
        made += ".new" + std::to_string(i);
        if (File file{std::fopen(made.string().c_str(), "wbx")})
            return file;
        if (errno != EEXIST)
            break;
    }
    failBySystem(path, errno);
}

void replace(const std::string& path, const fs::path& target, bool exists, std::string_view content)
{
    if (exists)
        openToWrite(path, target.string(), "r+b"); // refuses a file that may not be written
    fs::path made;
    File file = makeBeside(path, target, made);
    std::error_code error;
    try {
        writeContent(path, file.get(), content);
        if (std::fclose(file.release()) != 0)
            failBySystem(path, errno);
        if (exists)
            fs::permissions(made, fs::status(target).permissions(), error);
        fs::rename(made, target, error);
        if (error)
            fail(path, error.message());
    } catch (const Fault&) {
        fs::remove(made, error);
        throw;
    }
}

} // namespace

std::string TextFiles::shownName(const std::string& path)
{
    return path == "-" ? "standard input" : path;
}

std::string TextFiles::read(const std::string& path, std::istream& standardInput, Progress& progress)
{
    if (path == "-")
        return readStream(path, standardInput, 0, progress);
    std::error_code error;
    if (fs::is_directory(path, error))
        fail(path, "is a directory");
    errno = 0;
    std::ifstream file(path, std::ios::binary);
    if (!file)
        failBySystem(path, errno);
    const std::uintmax_t size = fs::file_size(path, error);
    return readStream(path, file, error ? 0 : std::size_t(size), progress);
}

void TextFiles::write(const std::string& path, std::string_view content, std::ostream& standardOutput)
{
    if (path == "-") {
        standardOutput << content << std::flush;
        return;
    }
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (fs::is_directory(status))
        fail(path, "is a directory");
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        writeContent(path, openToWrite(path, path, "wb").get(), content);
        return;
    }
    replace(path, behindLinks(path), fs::exists(status), content);
}

// SPDX-License-Identifier: MIT
#include "TextFiles.h"

#include "Fault.h"
#include "Progress.h"

#include <curveeditor/files/FileReplacement.h>

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <istream>
#include <ostream>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr std::size_t blockSize = std::size_t(1) << 20;

[[noreturn]] void fail(const std::string& path, const std::string& reason)
{
    throw Fault(TextFiles::shownName(path) + ": " + reason);
}

[[noreturn]] void failBySystem(const std::string& path, int error)
{
    fail(path, error != 0 ? std::generic_category().message(error) : "could not be used");
}

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

void writeToDevice(const std::string& path, std::string_view content)
{
    errno = 0;
    std::ofstream device(TextFiles::toPath(path), std::ios::binary);
    device << content << std::flush;
    if (!device)
        failBySystem(path, errno);
}

} // namespace

fs::path TextFiles::toPath(const std::string& name)
{
#ifdef __cpp_char8_t
    return std::u8string(name.begin(), name.end());
#else
    return fs::u8path(name);
#endif
}

std::string TextFiles::toName(const fs::path& path)
{
    const auto name = path.u8string(); // of another type in each version of the language
    return {name.begin(), name.end()};
}

std::string TextFiles::shownName(const std::string& path)
{
    return path == "-" ? "standard input" : path;
}

std::string TextFiles::read(const std::string& path, std::istream& standardInput, Progress& progress)
{
    if (path == "-")
        return readStream(path, standardInput, 0, progress);
    std::error_code error;
    if (fs::is_directory(toPath(path), error))
        fail(path, "is a directory");
    errno = 0;
    std::ifstream file(toPath(path), std::ios::binary);
    if (!file)
        failBySystem(path, errno);
    const std::uintmax_t size = fs::file_size(toPath(path), error);
    return readStream(path, file, error ? 0 : std::size_t(size), progress);
}

void TextFiles::write(const std::string& path, std::string_view content, std::ostream& standardOutput)
{
    if (path == "-") {
        standardOutput << content << std::flush;
        return;
    }
    std::error_code error;
    const fs::file_status status = fs::status(toPath(path), error);
    if (fs::is_directory(status))
        fail(path, "is a directory");
    if (fs::exists(status) && !fs::is_regular_file(status)) {
        writeToDevice(path, content);
        return;
    }
    error = FileReplacement::write(toPath(path), content);
    if (error)
        fail(path, error.message());
}

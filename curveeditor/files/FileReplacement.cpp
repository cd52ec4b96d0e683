// SPDX-License-Identifier: MIT
#include <curveeditor/files/FileReplacement.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <random>
#include <string>
#include <utility>

#ifdef _WIN32
#include <fstream>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

// Inside, what fails throws a `std::system_error`.
namespace {

constexpr int longestChainOfLinks = 40;

[[noreturn]] void fail(std::errc error)
{
    throw std::system_error(std::make_error_code(error));
}

// Where the links end, be there a file or not.
fs::path behindLinks(fs::path path)
{
    for (int i = 0; fs::is_symlink(path); ++i) {
        if (i == longestChainOfLinks)
            fail(std::errc::too_many_symbolic_link_levels);
        path = path.parent_path() / fs::read_symlink(path);
    }
    return path;
}

fs::path unusedNameBeside(const fs::path& target)
{
    std::random_device random;
    return target.parent_path() / (".curve-" + std::to_string(random()) + '-' + std::to_string(random()));
}

#ifdef _WIN32
void requireWritable(const fs::path&) {}

void writeNewFile(const fs::path& path, const fs::file_status&, std::string_view content)
{
    std::ofstream file(path, std::ios::binary);
    file << content;
    file.close();
    if (!file)
        fail(std::errc::io_error);
}

void syncFolderOf(const fs::path&) {}
#else
void require(bool isDone)
{
    if (!isDone)
        throw std::system_error(errno, std::generic_category());
}

void requireWritable(const fs::path& path)
{
    require(::access(path.c_str(), W_OK) == 0);
}

class File
{
public:
    File(const fs::path& path, int flags, mode_t mode = 0)
        : number_(::open(path.c_str(), flags | O_CLOEXEC, mode))
    {
        require(number_ >= 0);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File()
    {
        if (number_ >= 0)
            ::close(number_);
    }

    void setMode(mode_t mode) const
    {
        // Some file systems know no permissions.
        require(::fchmod(number_, mode) == 0 || errno == EPERM || errno == ENOTSUP);
    }
    void write(std::string_view content) const
    {
        while (!content.empty()) {
            const ssize_t count = ::write(number_, content.data(), content.size());
            require(count > 0 || (count < 0 && errno == EINTR));
            content.remove_prefix(std::size_t(std::max(count, ssize_t(0))));
        }
    }
    void sync() const { require(::fsync(number_) == 0); }
    void close() { require(::close(std::exchange(number_, -1)) == 0); }

private:
    int number_;
};

void writeNewFile(const fs::path& path, const fs::file_status& old, std::string_view content)
{
    const mode_t mode = fs::exists(old) ? mode_t(old.permissions()) & 0777 : 0666;
    File file(path, O_WRONLY | O_CREAT | O_EXCL, mode);
    if (fs::exists(old))
        file.setMode(mode); // beyond what the mask for new files lets through
    file.write(content);
    file.sync();
    file.close();
}

void syncFolderOf(const fs::path& path)
{
    const fs::path folder = path.has_parent_path() ? path.parent_path() : ".";
    try {
        File(folder, O_RDONLY | O_DIRECTORY).sync();
    } catch (const std::system_error& fault) {
        // Files can be made in a folder that can't be read, and some file systems don't sync folders.
        const int error = fault.code().value();
        if (error != EACCES && error != EINVAL && error != ENOTSUP)
            throw;
    }
}
#endif

void replace(const fs::path& target, const fs::file_status& old, std::string_view content)
{
    const fs::path fresh = unusedNameBeside(target);
    try {
        writeNewFile(fresh, old, content);
        fs::rename(fresh, target);
    } catch (const std::system_error&) {
        std::error_code ignored;
        fs::remove(fresh, ignored);
        throw;
    }
    syncFolderOf(target);
}

} // namespace

std::error_code FileReplacement::write(const fs::path& path, std::string_view content)
{
    try {
        if (path.native().find(fs::path::value_type(0)) != fs::path::string_type::npos)
            fail(std::errc::invalid_argument);
        const fs::path target = behindLinks(path);
        const fs::file_status old = fs::status(target);
        if (fs::is_directory(old))
            fail(std::errc::is_a_directory);
        if (fs::exists(old) && !fs::is_regular_file(old))
            fail(std::errc::invalid_argument);
        if (fs::exists(old))
            requireWritable(target);
        replace(target, old, content);
        return {};
    } catch (const std::system_error& fault) {
        return fault.code();
    }
}

// SPDX-License-Identifier: MIT
#include <curveeditor/files/FileReplacement.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <ctime>
#include <mutex>
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
#ifdef __linux__
#include <linux/limits.h>
#include <sys/xattr.h>
#endif

namespace fs = std::filesystem;

// Inside, what fails throws a `std::system_error`.
namespace {

constexpr int longestChainOfLinks = 40;
constexpr std::string_view hiddenStart = ".curve-";

/// Of the one fault that leaves the new content in place.
class NotYetOnDisk : public std::error_category
{
public:
    const char* name() const noexcept override { return "FileReplacement"; }
    std::string message(int) const override { return "saved, but perhaps not yet on the disk"; }
};

const NotYetOnDisk notYetOnDisk;

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
    return target.parent_path() /
           (std::string(hiddenStart) + std::to_string(random()) + '-' + std::to_string(random()));
}

#ifdef _WIN32
void requireWritable(const fs::path&) {}

void writeNewFile(const fs::path& path, const fs::path&, std::string_view content)
{
    std::ofstream file(path, std::ios::binary);
    file << content;
    file.close();
    if (!file)
        fail(std::errc::io_error);
}

void syncFolderOf(const fs::path&) {}
void removeLeftoversBeside(const fs::path&) {}
#else
void require(bool isDone)
{
    if (!isDone)
        throw std::system_error(errno, std::generic_category());
}

/// Says that the file system does not know of this, or that the user may not do it.
bool isBeyondReach(int error)
{
    return error == EPERM || error == EACCES || error == EINVAL || error == ENOTSUP;
}

void requireWithinReach(bool isDone)
{
    require(isDone || isBeyondReach(errno));
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

    /// Owner, group, permissions and attributes, in the order in which none undoes another.
    void resemble(const fs::path& old, const struct stat& status) const
    {
        mode_t mode = status.st_mode & 0777;
        requireWithinReach(::fchown(number_, status.st_uid, uid_t(-1)) == 0);
        const bool hasGroup = ::fchown(number_, uid_t(-1), status.st_gid) == 0;
        requireWithinReach(hasGroup);
        if (!hasGroup) // another one gets no more than all others
            mode = (mode & 0707) | (mode & 0007) << 3;
        requireWithinReach(::fchmod(number_, mode) == 0);
        takeAttributes(old);
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
    void takeAttributes(const fs::path& old) const;

    int number_;
};

#ifdef __linux__
void File::takeAttributes(const fs::path& old) const
{
    std::string names(XATTR_LIST_MAX, '\0');
    const ssize_t length = ::listxattr(old.c_str(), names.data(), names.size());
    names.resize(std::size_t(std::max(length, ssize_t(0))));
    std::string value(XATTR_SIZE_MAX, '\0');
    for (std::size_t place = 0; place < names.size(); place = names.find('\0', place) + 1) {
        const char* const name = names.data() + place;
        const ssize_t size = ::getxattr(old.c_str(), name, value.data(), value.size());
        if (size >= 0)
            requireWithinReach(::fsetxattr(number_, name, value.data(), std::size_t(size), 0) == 0);
    }
}
#else
void File::takeAttributes(const fs::path&) const {}
#endif

void writeNewFile(const fs::path& path, const fs::path& old, std::string_view content)
{
    struct stat status = {};
    const bool isThere = ::stat(old.c_str(), &status) == 0;
    require(isThere || errno == ENOENT);
    File file(path, O_WRONLY | O_CREAT | O_EXCL, isThere ? 0600 : 0666);
    if (isThere)
        file.resemble(old, status);
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
        if (!isBeyondReach(error))
            throw std::system_error(error, notYetOnDisk);
    }
}

/// ".curve-<digits>-<digits>"
bool isHiddenName(std::string_view name)
{
    constexpr std::string_view digits = "0123456789";
    if (name.substr(0, hiddenStart.size()) != hiddenStart)
        return false;
    name.remove_prefix(hiddenStart.size());
    const std::size_t dash = name.find_first_not_of(digits);
    return dash != 0 && dash < name.size() - 1 && name[dash] == '-' &&
           name.find_first_not_of(digits, dash + 1) == name.npos;
}

bool isLeftover(const fs::path& path)
{
    constexpr std::time_t day = 24 * 60 * 60;
    struct stat status = {};
    return isHiddenName(path.filename().native()) && ::lstat(path.c_str(), &status) == 0 &&
           S_ISREG(status.st_mode) && status.st_uid == ::geteuid() &&
           std::time(nullptr) - status.st_mtime > day;
}

/// Thousands of saves into one folder read it once.
bool isLookedThrough(const fs::path& folder)
{
    static std::mutex mutex;
    static fs::path last;
    const std::lock_guard lock(mutex);
    return std::exchange(last, folder) == folder;
}

void removeLeftoversBeside(const fs::path& target)
{
    std::error_code ignored;
    const fs::path folder = fs::absolute(target, ignored).parent_path();
    if (isLookedThrough(folder))
        return;
    fs::directory_iterator file(folder, ignored);
    for (; file != fs::directory_iterator(); file.increment(ignored)) {
        if (isLeftover(file->path()))
            fs::remove(file->path(), ignored);
    }
}
#endif

void replace(const fs::path& target, std::string_view content)
{
    const fs::path fresh = unusedNameBeside(target);
    try {
        writeNewFile(fresh, target, content);
        fs::rename(fresh, target);
    } catch (const std::system_error&) {
        std::error_code ignored;
        fs::remove(fresh, ignored);
        throw;
    }
    syncFolderOf(target);
    removeLeftoversBeside(target);
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
        replace(target, content);
        return {};
    } catch (const std::system_error& fault) {
        return fault.code();
    }
}

bool FileReplacement::isSaved(const std::error_code& outcome)
{
    return !outcome || outcome.category() == notYetOnDisk;
}

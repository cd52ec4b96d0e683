// SPDX-License-Identifier: MIT
#include <curveeditor/files/FreshFile.h>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <ctime>
#include <string>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#ifdef __linux__
#include <linux/limits.h>
#include <sys/xattr.h>
#endif

namespace fs = std::filesystem;

namespace {

constexpr int longestChainOfLinks = 40;

void require(bool isDone)
{
    if (!isDone)
        throw std::system_error(errno, std::generic_category());
}

void require(bool isTrue, std::errc otherwise)
{
    if (!isTrue)
        throw std::system_error(std::make_error_code(otherwise));
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
    /// Waits for the disk itself where the system has a call for that.
    void sync() const
    {
#ifdef F_FULLFSYNC
        if (::fcntl(number_, F_FULLFSYNC) == 0)
            return;
#endif
        require(::fsync(number_) == 0);
    }
    void close()
    {
        require(::close(std::exchange(number_, -1)) == 0);
    }

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

} // namespace

namespace curveeditor {

fs::path FreshFile::target(const fs::path& path)
{
    fs::path end = path;
    for (int i = 0; fs::is_symlink(end); ++i) {
        require(i < longestChainOfLinks, std::errc::too_many_symbolic_link_levels);
        end = end.parent_path() / fs::read_symlink(end);
    }
    return end;
}

void FreshFile::requireReplaceable(const fs::path& target)
{
    const fs::file_status status = fs::status(target);
    if (!fs::exists(status))
        return;
    require(!fs::is_directory(status), std::errc::is_a_directory);
    require(fs::is_regular_file(status), std::errc::invalid_argument);
    require(::access(target.c_str(), W_OK) == 0);
}

void FreshFile::write(const fs::path& fresh, const fs::path& old, std::string_view content)
{
    struct stat status = {};
    const bool isThere = ::stat(old.c_str(), &status) == 0;
    require(isThere || errno == ENOENT);
    File file(fresh, O_WRONLY | O_CREAT | O_EXCL, isThere ? 0600 : 0666);
    if (isThere)
        file.resemble(old, status);
    file.write(content);
    file.sync();
    file.close();
}

void FreshFile::discard(const fs::path& fresh)
{
    ::unlink(fresh.c_str());
}

void FreshFile::moveOnto(const fs::path& fresh, const fs::path& target)
{
    fs::rename(fresh, target);
}

void FreshFile::syncFolderOf(const fs::path& target, const std::error_category& notYetOnDisk)
{
    const fs::path folder = target.has_parent_path() ? target.parent_path() : ".";
    try {
        File(folder, O_RDONLY | O_DIRECTORY).sync();
    } catch (const std::system_error& fault) {
        // Files can be made in a folder that can't be read, and some file systems don't sync folders.
        const int error = fault.code().value();
        if (!isBeyondReach(error))
            throw std::system_error(error, notYetOnDisk);
    }
}

bool FreshFile::isForgotten(const fs::path& path)
{
    constexpr std::time_t day = std::time_t(24) * 60 * 60;
    struct stat status = {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == ::geteuid() &&
           std::time(nullptr) - status.st_mtime > day;
}

} // namespace curveeditor

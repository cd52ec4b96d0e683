// SPDX-License-Identifier: MIT
#include <curveeditor/files/FileReplacement.h>

#include <curveeditor/files/FreshFile.h>

#include <mutex>
#include <random>
#include <string>
#include <utility>

using namespace curveeditor;
namespace fs = std::filesystem;

// Inside, what fails throws a `std::system_error`.
namespace {

constexpr std::string_view hiddenStart = ".curve-";

/// Of the one fault that leaves the new content in place.
class NotYetOnDisk : public std::error_category
{
public:
    const char* name() const noexcept override { return "FileReplacement"; }
    std::string message(int) const override { return "saved, but perhaps not yet on the disk"; }
};

const NotYetOnDisk notYetOnDisk;

fs::path unusedNameBeside(const fs::path& target)
{
    std::random_device random;
    return target.parent_path() /
           (std::string(hiddenStart) + std::to_string(random()) + '-' + std::to_string(random()));
}

/// With a mark for each character beyond ASCII, so that any name can be read.
std::string asciiName(const fs::path& path)
{
    const fs::path file = path.filename();
    std::string name;
    for (const fs::path::value_type c : file.native()) {
        const auto low = char(c & 0x7F);
        name += c == low ? low : '?';
    }
    return name;
}

/// ".curve-<digits>-<digits>"
bool isHiddenName(std::string_view name)
{
    constexpr std::string_view digits = "0123456789";
    if (!name.starts_with(hiddenStart))
        return false;
    name.remove_prefix(hiddenStart.size());
    const std::size_t dash = name.find_first_not_of(digits);
    return dash != 0 && dash < name.size() - 1 && name[dash] == '-' &&
           name.find_first_not_of(digits, dash + 1) == name.npos;
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
        if (isHiddenName(asciiName(file->path())) && FreshFile::isForgotten(file->path()))
            fs::remove(file->path(), ignored);
    }
}

void replace(const fs::path& target, std::string_view content)
{
    const fs::path fresh = unusedNameBeside(target);
    try {
        FreshFile::write(fresh, target, content);
        FreshFile::moveOnto(fresh, target);
    } catch (const std::system_error&) {
        FreshFile::discard(fresh);
        throw;
    }
    FreshFile::syncFolderOf(target, notYetOnDisk);
    removeLeftoversBeside(target);
}

} // namespace

std::error_code FileReplacement::write(const fs::path& path, std::string_view content)
{
    try {
        if (path.native().find(fs::path::value_type(0)) != fs::path::string_type::npos)
            return std::make_error_code(std::errc::invalid_argument);
        const fs::path target = FreshFile::target(path);
        FreshFile::requireReplaceable(target);
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

// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <string_view>
#include <system_error>

namespace curveeditor {

/// What systems do in ways of their own when a file is replaced. What fails throws a `std::system_error`; there is a source
/// for POSIX and one for Windows.
namespace FreshFile {

/// Where the links end, be there a file or not; a path that the calls below can be given, however long it is.
std::filesystem::path target(const std::filesystem::path& path);

/// Throws unless there is no file, or one that may be written.
void requireReplaceable(const std::filesystem::path& target);

/// Makes a file that was not there, resembling `old` if that is there, and waits until it is on the disk.
void write(const std::filesystem::path& fresh, const std::filesystem::path& old, std::string_view content);

/// Removes the file if it is there.
void discard(const std::filesystem::path& fresh);

/// Gives `fresh` the place of `target`. At each moment there is one of both.
void moveOnto(const std::filesystem::path& fresh, const std::filesystem::path& target);

/// Waits until that, too, is on the disk. A fault of the category `notYetOnDisk` says that it can't be told.
void syncFolderOf(const std::filesystem::path& target, const std::error_category& notYetOnDisk);

/// Whether it is a file of this user to which nobody wrote for a day.
bool isForgotten(const std::filesystem::path& path);

} // namespace FreshFile

} // namespace curveeditor

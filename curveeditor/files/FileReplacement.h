// SPDX-License-Identifier: MIT
#pragma once

#include <curveeditor/model/Export.h>

#include <filesystem>
#include <string_view>
#include <system_error>

/// The way in which a file of a user is written: whatever happens, it is the old one or the new one, whole. Needs
/// no Qt.
namespace FileReplacement {

/// Makes `content` the content of the file, or makes a file of it; an empty code says that it is on the disk. The
/// content is written beside the file, under a hidden name, and takes its place when it is complete and synced: on
/// any fault until then the file stays as it was. The last fault that can be is that the folder's new entry could
/// not be synced: then the file is the new one, but may be the old one again after a crash of the machine. `isSaved`
/// tells that fault from the others, and its message is "saved, but perhaps not yet on the disk".
///
/// Permissions and extended attributes are kept, owner and group as far as the process may; a group that may not be
/// kept leaves its successor the permissions of all others. Of a symbolic link the file that it points to is replaced,
/// or made. Other names of the same file (hard links) keep the old content. A folder, a pipe, a device or a file
/// that may not be written is refused. Extended attributes are kept on Linux.
///
/// On Windows attributes, access rights, streams and the time of creation are kept where the file system knows how. A file
/// that another program holds open, and does not share for deleting, is tried for a fifth of a second and refused then.
/// Paths may be longer than 260 characters. A link without a file behind it is replaced by one.
///
/// Only a process that is killed leaves the hidden file. The first save into a folder removes such files of the same
/// user, named ".curve-<digits>-<digits>", that nobody wrote to for a day.
CURVEEDITOR_EXPORT std::error_code write(const std::filesystem::path& path, std::string_view content);

/// True if the file has the new content, whether or not it is known to be on the disk.
CURVEEDITOR_EXPORT bool isSaved(const std::error_code& outcome);

} // namespace FileReplacement

// SPDX-License-Identifier: MIT
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <string_view>

class Progress;

/// Files as a whole. The name "-" stands for the standard stream that is handed over. All throw a `Fault` whose
/// text begins with the name of the file.
namespace TextFiles {

/// The most bytes that are read.
constexpr std::size_t mostBytes = std::size_t(512) << 20;

/// @{
/// The name of a file as a path and back; names are UTF-8 whatever the system.
std::filesystem::path toPath(const std::string& name);
std::string toName(const std::filesystem::path& path);
/// @}

/// What messages call the file.
std::string shownName(const std::string& path);

std::string read(const std::string& path, std::istream& standardInput, Progress& progress);

/// Makes `content` the content of the file by `FileReplacement::write`; a pipe or device is written to.
void write(const std::string& path, std::string_view content, std::ostream& standardOutput);

} // namespace TextFiles

// SPDX-License-Identifier: MIT
// Files that are read whole, and files that appear whole or not at all.

#ifndef ASSEMBLY_FILES_H
#define ASSEMBLY_FILES_H

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

namespace assembly {

/// Bad input, or an output that cannot be written. what() is the line that the user reads.
class Failure : public std::runtime_error {
public:
    Failure(std::string const &file, std::string const &what)
        : std::runtime_error(file + ": " + what) {}
};

/// The whole content of a file. Throws Failure when it cannot be read.
std::string readFile(std::filesystem::path const &file);

/// Makes the folder when it is missing. Throws Failure when that is impossible.
void makeFolder(std::filesystem::path const &folder);

/// The output files of one run. Each is first written beside its target, under another name;
/// commit() then renames them all. If anything fails before that, the files written so far are
/// removed, and older files of the same names are unchanged.
class OutputFiles {
public:
    OutputFiles() = default;
    ~OutputFiles();
    OutputFiles(OutputFiles const &) = delete;
    OutputFiles &operator=(OutputFiles const &) = delete;

    /// Writes the content beside the target and returns the name used. Throws Failure when it
    /// cannot, and when the target is staged already.
    std::filesystem::path stage(std::filesystem::path const &target, std::string const &content);
    /// Renames the staged files and returns their final names.
    std::vector<std::filesystem::path> commit();

private:
    struct File {
        std::filesystem::path staged;
        std::filesystem::path target;
    };

    std::vector<File> files_; // staged and not yet renamed
};

} // namespace assembly

#endif

// SPDX-License-Identifier: MIT
// Files that appear whole or not at all.

#ifndef EXAMPLE_OUTPUT_H
#define EXAMPLE_OUTPUT_H

#include <filesystem>
#include <string>
#include <vector>

namespace example {

/// The whole content of a file. Throws Failure when it cannot be read.
std::string readFile(std::filesystem::path const &file);

/// Makes the folder when it is missing. Throws Failure when that is impossible.
void makeFolder(std::filesystem::path const &folder);

/// Output files of one run. Each is first written beside its target, under another name; commit()
/// then renames them all. When anything fails before that, what was written is removed again and
/// older files of the same names stay as they were.
class OutputFiles {
public:
    OutputFiles() = default;
    ~OutputFiles();
    OutputFiles(OutputFiles const &) = delete;
    OutputFiles &operator=(OutputFiles const &) = delete;

    /// Writes the content beside the target and returns where. Throws Failure when it cannot, and
    /// when the target is staged already.
    std::filesystem::path stage(std::filesystem::path const &target, std::string const &content);
    /// Renames what was staged and returns the final names.
    std::vector<std::filesystem::path> commit();

private:
    struct File {
        std::filesystem::path staged;
        std::filesystem::path target;
    };

    std::vector<File> files_; // staged and not yet renamed
};

} // namespace example

#endif

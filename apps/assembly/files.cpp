// SPDX-License-Identifier: MIT
// Files that are read whole, and files that appear whole or not at all.

#include "files.h"

#include <algorithm>
#include <cerrno>
#include <fstream>
#include <system_error>

namespace assembly {

namespace fs = std::filesystem;

namespace {

std::string lastSystemError() { return std::generic_category().message(errno); }

bool isFolder(fs::path const &path) {
    std::error_code ignored; // a path that cannot be examined fails when it is opened
    return fs::is_directory(path, ignored);
}

fs::path normal(fs::path const &path) { return fs::absolute(path).lexically_normal(); }

[[noreturn]] void failToWrite(fs::path const &target, std::string const &reason) {
    throw Failure(target.string(), "cannot be written: " + reason);
}

} // namespace

std::string readFile(fs::path const &file) {
    if (isFolder(file)) throw Failure(file.string(), "cannot be read: it is a folder");
    std::ifstream stream(file, std::ios::binary);
    if (!stream) throw Failure(file.string(), "cannot be opened: " + lastSystemError());
    // Block by block: a pipe does not know its size.
    constexpr std::streamsize kBlock = 1 << 20;
    std::string content;
    while (stream) {
        std::size_t const size = content.size();
        content.resize(size + kBlock);
        stream.read(&content[size], kBlock);
        content.resize(size + static_cast<std::size_t>(stream.gcount()));
    }
    if (stream.bad()) throw Failure(file.string(), "cannot be read: " + lastSystemError());
    return content;
}

void makeFolder(fs::path const &folder) {
    std::error_code error;
    fs::create_directories(folder, error);
    if (!error && isFolder(folder)) return;
    throw Failure(folder.string(), "cannot be made an output folder: " + error.message());
}

OutputFiles::~OutputFiles() {
    std::error_code ignored;
    for (File const &file : files_) fs::remove(file.staged, ignored);
}

fs::path OutputFiles::stage(fs::path const &target, std::string const &content) {
    bool const isTaken = std::any_of(files_.begin(), files_.end(), [&](File const &file) {
        return normal(file.target) == normal(target);
    });
    if (isTaken) failToWrite(target, "another output has this name");
    if (isFolder(target)) failToWrite(target, "a folder has this name");

    File const file{target.string() + ".part", target};
    std::ofstream stream(file.staged, std::ios::binary);
    if (!stream) failToWrite(target, lastSystemError());
    files_.push_back(file);
    stream << content;
    stream.close(); // a full disk may show only here
    if (!stream) failToWrite(target, lastSystemError());
    return file.staged;
}

std::vector<fs::path> OutputFiles::commit() {
    std::vector<fs::path> written;
    while (!files_.empty()) {
        File const file = files_.front();
        std::error_code error;
        fs::rename(file.staged, file.target, error);
        if (error) failToWrite(file.target, error.message());
        files_.erase(files_.begin());
        written.push_back(file.target);
    }
    return written;
}

} // namespace assembly

// SPDX-License-Identifier: MIT
// Files that appear whole or not at all.

#include "output.h"

#include "failure.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>

namespace example {

namespace fs = std::filesystem;

namespace {

std::string lastSystemError() { return std::generic_category().message(errno); }

bool isFolder(fs::path const &path) {
    std::error_code ignored; // what cannot be looked at fails when it is opened
    return fs::is_directory(path, ignored);
}

} // namespace

std::string readFile(fs::path const &file) {
    if (isFolder(file)) throw Failure(file.string(), "cannot be read: it is a folder");
    std::ifstream stream(file, std::ios::binary);
    if (!stream) throw Failure(file.string(), "cannot be opened: " + lastSystemError());
    std::string content{std::istreambuf_iterator<char>(stream), {}};
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
    File const file{target.string() + ".part", target};
    for (File const &earlier : files_) {
        if (fs::absolute(earlier.target).lexically_normal()
            != fs::absolute(target).lexically_normal())
            continue;
        throw Failure(target.string(), "cannot be written: another output has this name");
    }
    if (isFolder(target)) {
        throw Failure(target.string(), "cannot be written: a folder has this name");
    }
    std::ofstream stream(file.staged, std::ios::binary);
    if (!stream) throw Failure(file.target.string(), "cannot be written: " + lastSystemError());
    files_.push_back(file);
    stream << content;
    stream.close(); // what the disk refuses late shows here
    if (!stream) throw Failure(file.target.string(), "cannot be written: " + lastSystemError());
    return file.staged;
}

std::vector<fs::path> OutputFiles::commit() {
    std::vector<fs::path> written;
    while (!files_.empty()) {
        File const file = files_.front();
        std::error_code error;
        fs::rename(file.staged, file.target, error);
        if (error) throw Failure(file.target.string(), "cannot be written: " + error.message());
        files_.erase(files_.begin());
        written.push_back(file.target);
    }
    return written;
}

} // namespace example

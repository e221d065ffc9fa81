// SPDX-License-Identifier: MIT
// Files that appear whole or not at all.

#include "output.h"

#include "failure.h"

#include <cerrno>
#include <fstream>
#include <iterator>
#include <system_error>
#include <utility>

namespace example {

namespace fs = std::filesystem;

namespace {

std::string lastSystemError() { return std::generic_category().message(errno); }

} // namespace

std::string readFile(fs::path const &file) {
    if (fs::is_directory(file)) throw Failure(file.string(), "cannot be read: it is a folder");
    std::ifstream stream(file, std::ios::binary);
    if (!stream) throw Failure(file.string(), "cannot be opened: " + lastSystemError());
    std::string content{std::istreambuf_iterator<char>(stream), {}};
    if (stream.bad()) throw Failure(file.string(), "cannot be read: " + lastSystemError());
    return content;
}

OutputFiles::OutputFiles(fs::path folder) : folder_(std::move(folder)) {
    std::error_code error;
    fs::create_directories(folder_, error);
    if (!error && fs::is_directory(folder_)) return;
    throw Failure(folder_.string(), "cannot be made an output folder: " + error.message());
}

OutputFiles::~OutputFiles() {
    std::error_code ignored;
    for (File const &file : files_) fs::remove(file.staged, ignored);
}

fs::path OutputFiles::stage(std::string const &name, std::string const &content) {
    File const file{folder_ / (name + ".part"), folder_ / name};
    if (fs::is_directory(file.target)) {
        throw Failure(file.target.string(), "cannot be written: a folder has this name");
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

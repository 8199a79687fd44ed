// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>

#include "platform/private_folder.h"
#include "platform/system_platform.h"

namespace quode {
namespace {

namespace fs = std::filesystem;

constexpr mode_t newFileMode = 0600;

[[noreturn]] void fail(const char* what, const fs::path& path) {
    throw fs::filesystem_error(what, path, std::error_code(errno, std::generic_category()));
}

// An open file that closes itself.
class OpenFile {
  public:
    OpenFile(int descriptor, const char* what, fs::path path) : descriptor_(descriptor), path_(std::move(path)) {
        if (descriptor_ < 0) fail(what, path_);
    }
    ~OpenFile() { ::close(descriptor_); }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    void writeAll(std::string_view bytes) const {
        while (!bytes.empty()) {
            const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
            if (written < 0 && errno == EINTR) continue;
            if (written < 0) fail("cannot write", path_);
            bytes.remove_prefix(static_cast<std::size_t>(written));
        }
    }

    std::string readAll() const {
        std::string content;
        char buffer[16384];
        while (true) {
            const ssize_t count = ::read(descriptor_, buffer, sizeof buffer);
            if (count < 0 && errno == EINTR) continue;
            if (count < 0) fail("cannot read", path_);
            if (count == 0) return content;
            content.append(buffer, static_cast<std::size_t>(count));
        }
    }

    void setMode(mode_t mode) const {
        if (::fchmod(descriptor_, mode) != 0) fail("cannot set the rights of", path_);
    }

    void sync() const {
        if (::fsync(descriptor_) != 0) fail("cannot store", path_);
    }

  private:
    int descriptor_;
    fs::path path_;
};

// A file that deletes itself, unless it is kept.
class TemporaryFile {
  public:
    explicit TemporaryFile(std::string path) : path_(std::move(path)) {}
    ~TemporaryFile() {
        if (!kept_) ::unlink(path_.c_str());
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    void moveTo(const fs::path& target) {
        if (::rename(path_.c_str(), target.c_str()) != 0) fail("cannot replace", target);
        kept_ = true;
    }

  private:
    std::string path_;
    bool kept_ = false;
};

mode_t modeOf(const fs::path& path) {
    struct stat state {};
    return ::stat(path.c_str(), &state) == 0 ? state.st_mode & 07777 : newFileMode;
}

fs::path folderOf(const fs::path& path) {
    const fs::path folder = path.parent_path();
    return folder.empty() ? fs::path(".") : folder;
}

class PosixFiles : public Files {
  public:
    bool exists(const fs::path& path) const override { return fs::exists(path); }

    bool writable(const fs::path& path) const override {
        const int wanted = fs::is_directory(path) ? W_OK | X_OK : W_OK;
        return ::access(path.c_str(), wanted) == 0;
    }

    bool deletable(const fs::path& path) const override {
        const fs::file_status status = fs::symlink_status(path);
        return fs::exists(status) && !fs::is_directory(status) && writable(folderOf(path));
    }

    std::string read(const fs::path& path) const override {
        const OpenFile file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK), "cannot open", path);
        return file.readAll();
    }

    void append(const fs::path& path, std::string_view text) override {
        const int descriptor =
            ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK, newFileMode);
        OpenFile(descriptor, "cannot open", path).writeAll(text);
    }

    void write(const fs::path& path, std::string_view content) override {
        const fs::path target = fs::weakly_canonical(path);  // a link stays; its file is replaced
        std::string name = target.string() + ".XXXXXX";
        {
            const OpenFile file(::mkostemp(name.data(), O_CLOEXEC), "cannot write beside", target);
            TemporaryFile temporary(name);
            file.setMode(modeOf(target));
            file.writeAll(content);
            file.sync();
            temporary.moveTo(target);
        }
        const fs::path folder = folderOf(target);
        OpenFile(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC), "cannot open", folder).sync();
    }

    void remove(const fs::path& path) override {
        if (::unlink(path.c_str()) != 0) fail("cannot delete", path);
    }

    void createFolders(const fs::path& path) override {
        const std::error_code error = createPrivateFolders(path);
        if (error) throw fs::filesystem_error("cannot create", path, error);
    }
};

}  // namespace

std::shared_ptr<Files> posixFiles() {
    return std::make_shared<PosixFiles>();
}

}  // namespace quode

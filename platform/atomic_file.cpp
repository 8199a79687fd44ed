// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/atomic_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <ctime>
#include <system_error>

#include "platform/file_kind.h"
#include "platform/private_folder.h"
#include "texts/translation.h"

namespace quode {

namespace fs = std::filesystem;

namespace {

std::string adviceFor(const fs::path& path, int error) {
    switch (error) {
        case ENOSPC:
            return _("Free some space on the disk.");
        case EDQUOT:
            return _("Free some of your disk quota.");
        case EACCES:
        case EPERM:
            return _("Check the permissions of the file and of its folder.");
        case EROFS:
            return _("Make its disk writable or choose another data folder.");
        case EIO:
            return _("Check the disk.");
        case EFBIG:
            return _("It is larger than any calendar; move it away.");
        case ENOTDIR:
            return _("{} is not a folder. Move it away.", obstacleOn(path).string());
        case EISDIR:
            return _("Move away what is in its place.");
        case ENXIO:
            return _("Start the program that reads from it, or name another file.");
        case EMFILE:
        case ENFILE:
            return _("Close some programs.");
        default:
            return _("Check the file and its folder.");
    }
}

/// @param what  a translated text, before the path
FileOutcome failure(std::string_view what, const fs::path& path, int error) {
    return {false, fmt::format("{} {}: {}. {}", what, isolated(path.string()),
                               isolated(std::system_category().message(error)), adviceFor(path, error))};
}

FileOutcome noRegularFile(const fs::path& path) {
    return {false, _("{} is not a regular file. Move it away.", path.string())};
}

/// A file descriptor that closes itself.
class OpenFile {
  public:
    OpenFile(FileCalls& calls, int file) : calls_(calls), file_(file) {}
    ~OpenFile() {
        if (file_ >= 0) calls_.close(file_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;

    int get() const { return file_; }
    int closeNow() {
        const int result = calls_.close(file_);
        file_ = -1;
        return result;
    }

  private:
    FileCalls& calls_;
    int file_;
};

bool writeAll(FileCalls& calls, int file, std::string_view content) {
    while (!content.empty()) {
        const ssize_t written = calls.write(file, content.data(), content.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) {
            if (written == 0) errno = ENOSPC;
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// Advances the modification time when the old file was saved in the same second. An old time far in the future comes from
/// a wrong clock and differs from now anyway.
void tellApart(FileCalls& calls, int file, const struct stat& old) {
    constexpr std::time_t kFarFuture = 3600;
    const std::time_t now = std::time(nullptr);
    const std::time_t before = old.st_mtim.tv_sec;
    if (before < now || before > now + kFarFuture) return;
    // Failures are ignored: only other programs would notice, and late.
    calls.setModificationTime(file, {before + 1, 0});
}

/// Writes and synchronises the temporary file.
/// @return false with the cause in errno
bool writeTemporary(FileCalls& calls, const fs::path& temporary, std::string_view content, const struct stat* old) {
    OpenFile file(calls, calls.createFile(temporary, 0600));
    if (file.get() < 0) return false;
    if (old && calls.setOwnerAndMode(file.get(), old->st_uid, old->st_gid, old->st_mode & 07777U) < 0) return false;
    if (!writeAll(calls, file.get(), content)) return false;
    if (old) tellApart(calls, file.get(), *old);
    return calls.sync(file.get()) == 0 && file.closeNow() == 0;
}

/// Gives the old file a second name, so that it has one at every moment. Some file systems have no hard links.
bool keepOld(FileCalls& calls, const fs::path& path, const fs::path& keepOldAs) {
    if (calls.link(path, keepOldAs) == 0) return true;
    const bool noSecondNames = errno == EPERM || errno == EOPNOTSUPP || errno == ENOSYS || errno == EMLINK;
    return noSecondNames && calls.rename(path, keepOldAs) == 0;
}

/// Synchronises the folder: only then does a rename or removal survive a power cut.
FileOutcome syncFolder(FileCalls& calls, const fs::path& folder) {
    OpenFile opened(calls, calls.openFolder(folder));
    if (opened.get() >= 0 && calls.sync(opened.get()) == 0) return {};
    if (errno == EINVAL || errno == ENOTSUP) return {};  // a file system without the operation
    FileOutcome outcome =
        failure(_("The change is made but may not survive a power cut: cannot synchronise"), folder, errno);
    outcome.ok = true;
    return outcome;
}

FileStamp stampOf(const struct stat& facts) {
    return {true, facts.st_dev, facts.st_ino, facts.st_size, facts.st_mtim, facts.st_ctim};
}

bool sameMoment(const timespec& a, const timespec& b) {
    return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec;
}

bool isStill(const fs::path& path, const FileStamp& stamp) {
    struct stat facts {};
    if (::stat(path.c_str(), &facts) != 0) return !stamp.isThere && errno == ENOENT;
    return stamp.isThere && facts.st_dev == stamp.device && facts.st_ino == stamp.number &&
           facts.st_size == stamp.size && sameMoment(facts.st_mtim, stamp.modified) &&
           sameMoment(facts.st_ctim, stamp.changed);
}

// True when a file is the one that was read; its new name has changed the time of its last change.
bool wasRead(const fs::path& path, const FileStamp& stamp) {
    struct stat facts {};
    return ::lstat(path.c_str(), &facts) == 0 && facts.st_dev == stamp.device && facts.st_ino == stamp.number &&
           facts.st_size == stamp.size && sameMoment(facts.st_mtim, stamp.modified);
}

enum class Replaced { yes, outdated, failed };

/// Gives the temporary file its name. The two files are exchanged first and the old one is checked after that: between a
/// check and a rename another program could save.
Replaced takeThePlace(FileCalls& calls, const fs::path& temporary, const fs::path& target,
                      const std::optional<FileStamp>& readAs) {
    if (readAs && !isStill(target, *readAs)) return Replaced::outdated;
    if (!readAs || !readAs->isThere) return calls.rename(temporary, target) < 0 ? Replaced::failed : Replaced::yes;
    struct stat ours {};
    if (::lstat(temporary.c_str(), &ours) != 0) return Replaced::failed;
    if (calls.exchange(temporary, target) < 0) {
        const bool isKnown = errno != ENOSYS && errno != EINVAL && errno != ENOTSUP;
        if (isKnown && errno != ENOENT) return Replaced::failed;
        return calls.rename(temporary, target) < 0 ? Replaced::failed : Replaced::yes;
    }
    if (wasRead(temporary, *readAs)) {
        if (calls.unlink(temporary) < 0) calls.unlink(temporary);  // else the next save has to
        return Replaced::yes;
    }
    constexpr int mostTimes = 5;  // once, unless the other program saves again at this moment
    struct stat facts {};
    for (int i = 0; i < mostTimes; ++i) {
        if (calls.exchange(temporary, target) < 0) break;
        if (::lstat(temporary.c_str(), &facts) == 0 && facts.st_ino == ours.st_ino) break;
    }
    return Replaced::outdated;
}

fs::path withLinksFollowed(const fs::path& path) {
    std::error_code error;
    fs::path real = fs::weakly_canonical(path, error);
    return error ? path : real;
}

}  // namespace

FileContent readWholeFile(const fs::path& path, std::size_t limit) {
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);  // a pipe would wait for its writer
    if (file < 0) {
        const int cause = errno;
        if (cause == ENOENT) return {};
        if (isNoRegularFile(path)) return {noRegularFile(path), std::nullopt};  // a socket cannot even be opened
        return {failure(_("Cannot read"), path, cause), std::nullopt};
    }
    FileCalls calls;
    const OpenFile closeAtEnd(calls, file);
    struct stat facts {};
    if (::fstat(file, &facts) != 0) return {failure(_("Cannot read"), path, errno), std::nullopt};
    if (!S_ISREG(facts.st_mode)) return {noRegularFile(path), std::nullopt};
    if (static_cast<std::size_t>(facts.st_size) > limit) return {failure(_("Cannot read"), path, EFBIG), std::nullopt};

    std::string bytes(static_cast<std::size_t>(facts.st_size), '\0');
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const ssize_t got = ::read(file, bytes.data() + filled, bytes.size() - filled);
        if (got < 0 && errno == EINTR) continue;
        if (got < 0) return {failure(_("Cannot read"), path, errno), std::nullopt};
        if (got == 0) break;
        filled += static_cast<std::size_t>(got);
    }
    bytes.resize(filled);
    return {{}, std::move(bytes), stampOf(facts)};
}

FileOutcome replaceFile(FileCalls& calls, const fs::path& path, std::string_view content,
                        const std::optional<fs::path>& keepOldAs, const std::optional<FileStamp>& readAs) {
    const fs::path target = withLinksFollowed(path);
    const fs::path temporary = target.parent_path() / fmt::format(".{}.tmp", target.filename().string());
    struct stat facts {};
    const bool hasOld = ::stat(target.c_str(), &facts) == 0;

    const auto giveUp = [&](int error) {
        calls.unlink(temporary);
        return failure(_("Cannot save"), path, error);
    };
    if (calls.unlink(temporary) < 0 && errno != ENOENT) {
        return failure(_("Cannot save"), errno == EISDIR ? temporary : path, errno);
    }
    if (!writeTemporary(calls, temporary, content, hasOld ? &facts : nullptr)) return giveUp(errno);
    const bool keeps = hasOld && keepOldAs;  // then nothing can be lost, and its stamp changes
    const bool isOutdated = keeps && readAs && !isStill(target, *readAs);
    if (keeps && !isOutdated && !keepOld(calls, target, *keepOldAs)) return giveUp(errno);
    const Replaced replaced =
        isOutdated ? Replaced::outdated : takeThePlace(calls, temporary, target, keeps ? std::nullopt : readAs);
    if (replaced == Replaced::failed) return giveUp(errno);
    if (replaced == Replaced::outdated) {
        calls.unlink(temporary);
        return {false, _("Another program keeps changing {}. Try again in a moment.", path.string()), true};
    }
    return syncFolder(calls, target.parent_path());
}

FileOutcome writeInto(const fs::path& path, std::string_view content) {
    FileCalls calls;
    // Without a reader a pipe would be waited for; with one its writes wait.
    OpenFile file(calls, ::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK));
    if (file.get() < 0 || ::fcntl(file.get(), F_SETFL, 0) < 0 || !writeAll(calls, file.get(), content) ||
        file.closeNow() != 0) {
        return failure(_("Cannot write to"), path, errno);
    }
    return {};
}

bool isTemporaryFile(const fs::path& path) {
    const std::string name = path.filename().string();
    return name.starts_with('.') && (name.ends_with(".ics.tmp") || name.ends_with(".source.tmp"));
}

FileOutcome removeFile(FileCalls& calls, const fs::path& path) {
    if (calls.unlink(path) < 0) return errno == ENOENT ? FileOutcome{} : failure(_("Cannot remove"), path, errno);
    return syncFolder(calls, path.parent_path());
}

fs::path freeDamagedName(const fs::path& path) {
    const fs::path target = withLinksFollowed(path);
    for (int number = 1;; ++number) {
        fs::path name = target;
        name += fmt::format(".damaged-{}", number);
        struct stat facts {};
        if (::lstat(name.c_str(), &facts) != 0) return name;
    }
}

FileOutcome makeFolder(const fs::path& folder) {
    const std::error_code error = createPrivateFolders(folder);
    return error ? failure(_("Cannot create the folder"), folder, error.value()) : FileOutcome{};
}

FileLock::FileLock(const fs::path& lockFile, std::chrono::milliseconds patience) : file_(LockedFile::file(lockFile)) {
    const int cause = errno;
    if (file_.isOpen() ? !file_.isRegularFile() : isNoRegularFile(lockFile, Links::kept)) {
        outcome_ = noRegularFile(lockFile);
        return;
    }
    if (!file_.isOpen()) {
        outcome_ = failure(_("Cannot write beside"), lockFile, cause);
        return;
    }
    switch (file_.lock(patience)) {
        case LockedFile::Result::locked:
            return;
        case LockedFile::Result::busy:
            outcome_ = {false,
                        _("Another program is writing to {} and does not finish. Try again, or end that program.",
                          lockFile.parent_path().string())};
            return;
        case LockedFile::Result::failed:
            outcome_ = failure(_("Cannot lock"), lockFile, errno);
            return;
    }
}

}  // namespace quode

// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <sys/inotify.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <map>
#include <string>
#include <system_error>
#include <utility>

#include "desktop/MomentWatch.h"
#include "texts/translation.h"

namespace quode {
namespace {

/// An open file of the system.
class Descriptor {
  public:
    Descriptor(int number, const char* what) : number_(number) {
        if (number < 0) throw std::system_error(errno, std::system_category(), what);
    }
    ~Descriptor() { ::close(number_); }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    operator int() const { return number_; }

  private:
    int number_;
};

class SystemMomentWatch : public MomentWatch {
  public:
    SystemMomentWatch(const Clock& clock, std::vector<std::filesystem::path> files)
        : clock_(clock), files_(std::move(files)) {
        connect(&timerNotifier_, &QSocketNotifier::activated, this, &SystemMomentWatch::readTimer);
        connect(&fileNotifier_, &QSocketNotifier::activated, this, &SystemMomentWatch::readFileEvents);
    }

    void watchFor(std::optional<Clock::TimePoint> moment) override {
        watchFiles(moment.has_value());
        itimerspec when{};
        if (moment) {
            // Moments are whole seconds. One that has passed already is reached at once; 0 would stop the timer.
            const auto byMachine = std::chrono::system_clock::now() + (*moment - clock_.now());
            const auto seconds = std::chrono::round<std::chrono::seconds>(byMachine.time_since_epoch()).count();
            when.it_value.tv_sec = std::max<std::time_t>(1, static_cast<std::time_t>(seconds));
        }
        timerfd_settime(timer_, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &when, nullptr);
    }

  private:
    // The folders are watched, for files are replaced as often as they are written. A folder that cannot be watched is
    // no failure: the change is seen at the next moment. Closing a file counts for nothing: readers close it too. Each
    // time again, because a folder may have been deleted and recreated; one that is watched already stays so.
    void watchFiles(bool wanted) {
        if (!wanted) {
            for (const auto& folder : folders_) inotify_rm_watch(changes_, folder.first);
        }
        folders_.clear();
        if (!wanted) return;
        constexpr std::uint32_t written = IN_MODIFY | IN_CREATE | IN_MOVED_TO | IN_ONLYDIR;
        for (const std::filesystem::path& file : files_) {
            const int number = inotify_add_watch(changes_, file.parent_path().c_str(), written);
            if (number >= 0) folders_.emplace(number, file.filename());
        }
    }

    // The reading fails with ECANCELED when the clock was set.
    void readTimer() {
        std::uint64_t count = 0;
        if (::read(timer_, &count, sizeof count) < 0 && errno != ECANCELED) return;
        Q_EMIT happened();
    }

    void readFileEvents() {
        alignas(inotify_event) std::array<char, 4096> buffer{};
        bool isTouched = false;
        for (ssize_t size; (size = ::read(changes_, buffer.data(), buffer.size())) > 0;) {
            for (std::size_t at = 0; at < static_cast<std::size_t>(size);) {
                const auto* const event = reinterpret_cast<const inotify_event*>(&buffer[at]);
                const auto [first, last] = folders_.equal_range(event->wd);
                for (auto each = first; each != last; ++each) {
                    const bool isFolderGone = (event->mask & IN_IGNORED) != 0;
                    isTouched = isTouched || isFolderGone || (event->len > 0 && each->second == event->name);
                }
                at += sizeof(inotify_event) + event->len;
            }
        }
        if (isTouched) Q_EMIT happened();
    }

    const Clock& clock_;
    std::vector<std::filesystem::path> files_;
    Descriptor timer_{timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK), _("No timer could be created")};
    Descriptor changes_{inotify_init1(IN_CLOEXEC | IN_NONBLOCK), _("Files cannot be watched")};
    QSocketNotifier timerNotifier_{timer_, QSocketNotifier::Read};
    QSocketNotifier fileNotifier_{changes_, QSocketNotifier::Read};
    std::multimap<int, std::filesystem::path> folders_;  // by the number of the watch: the file in it
};

}  // namespace

std::unique_ptr<MomentWatch> systemMomentWatch(const Clock& clock, std::vector<std::filesystem::path> files) {
    return std::make_unique<SystemMomentWatch>(clock, std::move(files));
}

}  // namespace quode

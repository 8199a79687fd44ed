// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarmd/AlarmService.h"

#include <sys/inotify.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <stdexcept>
#include <string>
#include <utility>

#include "alarmd/ring_texts.h"
#include "data/user_places.h"
#include "texts/translation.h"

namespace quode {
namespace {

constexpr std::uint64_t settlingUs = 100'000;
constexpr std::uint64_t accuracyUs = 10'000;
constexpr std::uint32_t written = IN_MODIFY | IN_CREATE | IN_MOVED_TO | IN_DELETE;
constexpr std::uint32_t gone = IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED;
constexpr std::chrono::seconds folderInterval{10};  // between two looks for a missing folder

void check(int result, const char* what) {
    if (result < 0) throw std::runtime_error(std::string(what) + ": " + std::strerror(-result));
}

}  // namespace

AlarmService::AlarmService(sd_event* loop, AlarmKeeper& keeper, NotificationService& notifications,
                           const std::filesystem::path& dataFolder, const std::filesystem::path& zoneFile,
                           std::function<Service()> mayServe)
    : loop_(loop),
      keeper_(&keeper),
      notifications_(&notifications),
      dataFolder_(dataFolder),
      zoneFile_(zoneFile),
      mayServe_(std::move(mayServe)),
      timer_(timerfd_create(CLOCK_REALTIME, TFD_CLOEXEC | TFD_NONBLOCK)),
      expiry_(hearTimer()),
      settling_(makeSettling()),
      dataFolderWatch_(watchFolder(dataFolder, &AlarmService::dataFolderChanged)),
      zoneFolderWatch_(watchFolder(zoneFile_.parent_path(), &AlarmService::zoneFolderChanged)) {
    notifications_->onAction = [this](const NotificationId& notification, const std::string& key) {
        if (key == snoozeAction) {
            keeper_->snooze(notification);
        } else if (key == stopAction) {
            keeper_->stop(notification);
        } else if (key == muteAction) {
            keeper_->mute(notification);
        } else {
            return;  // of another program: the services report the answers to all
        }
        wakeKeeper();
    };
    keeper_->onUnseen = [this] {
        isRingUnseen_ = true;
        startSettling();
    };
    notifications_->onClosed = [this](const NotificationId& notification) { keeper_->closed(notification); };
    notifications_->onRun = [this] { wakeKeeper(); };
}

AlarmService::~AlarmService() {
    notifications_->onAction = nullptr;
    notifications_->onClosed = nullptr;
    notifications_->onRun = nullptr;
    keeper_->onUnseen = nullptr;
    expiry_.reset();  // before its descriptor goes
    ::close(timer_);
}

AlarmService::Source AlarmService::hearTimer() {
    check(timer_ < 0 ? -errno : 0, _("No timer could be created"));
    sd_event_source* made = nullptr;
    check(sd_event_add_io(loop_, &made, timer_, EPOLLIN, &AlarmService::timerExpired, this),
          _("The timer cannot be watched"));
    return Source(made);
}

AlarmService::Source AlarmService::makeSettling() {
    sd_event_source* made = nullptr;
    check(sd_event_add_time_relative(loop_, &made, CLOCK_MONOTONIC, 0, accuracyUs, &AlarmService::choicesSettled, this),
          _("No timer could be created"));
    sd_event_source_set_enabled(made, SD_EVENT_OFF);
    return Source(made);
}

// A folder that cannot be watched is no failure: the alarms ring, and changes are seen when the next one does.
AlarmService::Source AlarmService::watchFolder(const std::filesystem::path& folder,
                                               sd_event_inotify_handler_t handler) {
    sd_event_source* made = nullptr;
    sd_event_add_inotify(loop_, &made, folder.c_str(), written | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR, handler,
                         this);
    return Source(made);
}

int AlarmService::run() {
    wakeKeeper();
    const int result = sd_event_loop(loop_);
    keeper_->rest();
    return result;
}

void AlarmService::wakeKeeper() {
    // Arming the timer discards a report that the clock was set in between; it fails then.
    int result = 0;
    do {
        const Service service = mayServe_();
        if (service == Service::end) {
            sd_event_exit(loop_, 0);
            return;
        }
        if (service == Service::wait) {
            const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
            result = arm(now + folderInterval);
        } else {
            if (isWatchLost_) watchAgain();
            result = arm(keeper_->wake());
        }
    } while (result < 0 && errno == ECANCELED);
}

int AlarmService::arm(std::chrono::sys_seconds next) {
    itimerspec when{};
    when.it_value.tv_sec = static_cast<std::time_t>(next.time_since_epoch().count());
    return timerfd_settime(timer_, TFD_TIMER_ABSTIME | TFD_TIMER_CANCEL_ON_SET, &when, nullptr);
}

// The folder was deleted, and perhaps recreated under the same name.
void AlarmService::watchAgain() {
    dataFolderWatch_.reset();
    dataFolderWatch_ = watchFolder(dataFolder_, &AlarmService::dataFolderChanged);
    isWatchLost_ = dataFolderWatch_ == nullptr;
}

// The moment has come, or the clock was set, which the reading reports as cancelled.
int AlarmService::timerExpired(sd_event_source*, int descriptor, std::uint32_t, void* self) {
    std::uint64_t count = 0;
    if (::read(descriptor, &count, sizeof count) < 0 && errno == EAGAIN) return 0;
    static_cast<AlarmService*>(self)->wakeKeeper();
    return 0;
}

int AlarmService::dataFolderChanged(sd_event_source*, const inotify_event* event, void* self) {
    auto* const service = static_cast<AlarmService*>(self);
    const bool isLost = (event->mask & gone) != 0;
    if (isLost) service->isWatchLost_ = true;
    const bool overflow = (event->mask & IN_Q_OVERFLOW) != 0;
    if (!isLost && !overflow && (event->len == 0 || std::string_view(event->name) != userDatabaseName)) return 0;
    service->startSettling();
    return 0;
}

int AlarmService::zoneFolderChanged(sd_event_source*, const inotify_event* event, void* self) {
    auto* const service = static_cast<AlarmService*>(self);
    if (event->len > 0 && service->zoneFile_.filename() == event->name) service->wakeKeeper();
    return 0;
}

void AlarmService::startSettling() {
    sd_event_source_set_time_relative(settling_.get(), settlingUs);
    sd_event_source_set_enabled(settling_.get(), SD_EVENT_ONESHOT);
}

int AlarmService::choicesSettled(sd_event_source*, std::uint64_t, void* self) {
    auto* const service = static_cast<AlarmService*>(self);
    // To look into the database would make a folder again that the user deleted.
    const bool isServed = !service->isWatchLost_ && service->mayServe_() == Service::go;
    const bool isUnseen = std::exchange(service->isRingUnseen_, false);
    if (!isServed || isUnseen || service->keeper_->choicesChanged()) service->wakeKeeper();
    return 0;
}

}  // namespace quode

// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/sdbus_media_players.h"

#include <cstdint>
#include <cstdlib>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "platform/sd_bus.h"

namespace quode {
namespace {

constexpr std::string_view prefix = "org.mpris.MediaPlayer2.";
constexpr const char* playerObject = "/org/mpris/MediaPlayer2";
constexpr const char* playerInterface = "org.mpris.MediaPlayer2.Player";
constexpr const char* propertiesInterface = "org.freedesktop.DBus.Properties";

constexpr std::uint64_t playerPatienceUs = 1'000'000;  // with a player

struct FreeNames {
    void operator()(char** names) const {
        for (char** each = names; *each != nullptr; ++each) std::free(*each);
        std::free(names);
    }
};
using Names = std::unique_ptr<char*, FreeNames>;

class SdBusMediaPlayers : public MediaPlayers {
  public:
    explicit SdBusMediaPlayers(sd_event* loop) : loop_(sd_event_ref(loop)) {}

    ~SdBusMediaPlayers() override {
        for (const std::string& each : paused_) resumeNow(each);
        bus_.reset();
        sd_event_unref(loop_);
    }
    SdBusMediaPlayers(const SdBusMediaPlayers&) = delete;
    SdBusMediaPlayers& operator=(const SdBusMediaPlayers&) = delete;

    void pause() override {
        arePaused_ = true;
        char** listed = nullptr;
        if (!connect() || sd_bus_list_names(bus_.get(), &listed, nullptr) < 0 || listed == nullptr) return;
        const Names names(listed);
        for (char** each = listed; *each != nullptr; ++each) {
            if (std::string_view(*each).starts_with(prefix)) askForState(*each, &SdBusMediaPlayers::pauseIfPlaying);
        }
        sd_bus_flush(bus_.get());
    }

    void resume() override {
        arePaused_ = false;
        if (paused_.empty() || !connect()) return;
        for (const std::string& each : std::exchange(paused_, {})) {
            askForState(each.c_str(), &SdBusMediaPlayers::playIfPaused);
        }
        sd_bus_flush(bus_.get());
    }

  private:
    // Players are remembered by their unique name, which no other program takes.
    bool connect() {
        if (bus_ && sd_bus_is_open(bus_.get()) > 0) return true;
        bus_.reset();
        paused_.clear();
        sd_bus* opened = nullptr;
        if (sd_bus_open_user(&opened) < 0) return false;
        bus_.reset(opened);
        sd_bus_set_exit_on_disconnect(opened, 0);
        sd_bus_set_close_on_exit(opened, 0);  // players go on when the loop has ended
        sd_bus_set_method_call_timeout(opened, playerPatienceUs);
        sd_bus_attach_event(opened, loop_, SD_EVENT_PRIORITY_NORMAL);
        return true;
    }

    void askForState(const char* player, sd_bus_message_handler_t answered) {
        sd_bus_call_method_async(bus_.get(), nullptr, player, playerObject, propertiesInterface, "Get", answered, this,
                                 "ss", playerInterface, "PlaybackStatus");
    }

    void tell(const std::string& player, const char* method) {
        sd_bus_call_method_async(bus_.get(), nullptr, player.c_str(), playerObject, playerInterface, method, &ignore,
                                 nullptr, "");
    }

    // For the end of the process, when no loop takes answers any more.
    void resumeNow(const std::string& player) {
        char* state = nullptr;
        if (sd_bus_get_property_string(bus_.get(), player.c_str(), playerObject, playerInterface, "PlaybackStatus",
                                       nullptr, &state) < 0) {
            return;
        }
        const std::string present(state);
        std::free(state);
        if (present != "Paused") return;
        sd_bus_call_method(bus_.get(), player.c_str(), playerObject, playerInterface, "Play", nullptr, nullptr, "");
    }

    static std::string stateIn(sd_bus_message* reply) {
        const char* state = nullptr;
        const bool isRead =
            !sd_bus_message_is_method_error(reply, nullptr) && sd_bus_message_read(reply, "v", "s", &state) >= 0;
        return isRead ? state : "";
    }

    static int pauseIfPlaying(sd_bus_message* reply, void* userData, sd_bus_error*) {
        auto* const self = static_cast<SdBusMediaPlayers*>(userData);
        const char* const sender = sd_bus_message_get_sender(reply);
        if (!self->arePaused_ || sender == nullptr || stateIn(reply) != "Playing") return 0;
        self->paused_.insert(sender);
        self->tell(sender, "Pause");
        return 0;
    }

    static int playIfPaused(sd_bus_message* reply, void* userData, sd_bus_error*) {
        auto* const self = static_cast<SdBusMediaPlayers*>(userData);
        const char* const sender = sd_bus_message_get_sender(reply);
        if (sender == nullptr || stateIn(reply) != "Paused") return 0;
        if (self->arePaused_) {
            self->paused_.insert(sender);  // another alarm sounds already
        } else {
            self->tell(sender, "Play");
        }
        return 0;
    }

    static int ignore(sd_bus_message*, void*, sd_bus_error*) { return 0; }

    sd_event* loop_;
    Bus bus_;
    bool arePaused_ = false;        // between `pause` and `resume`: a late answer does not count
    std::set<std::string> paused_;  // unique names
};

}  // namespace

std::unique_ptr<MediaPlayers> sdBusMediaPlayers(sd_event* loop) {
    return std::make_unique<SdBusMediaPlayers>(loop);
}

}  // namespace quode

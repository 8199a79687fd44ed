// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "platform/canberra_sound_player.h"

#include <canberra.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <atomic>
#include <memory>
#include <optional>
#include <utility>

#include "common/numbers.h"
#include "platform/FadedSound.h"
#include "texts/translation.h"

namespace quode {
namespace {

using std::chrono::steady_clock;

constexpr std::uint32_t soundNumber = 1;

struct DestroyContext {
    void operator()(ca_context* context) const { ca_context_destroy(context); }
};
struct DestroyProperties {
    void operator()(ca_proplist* properties) const { ca_proplist_destroy(properties); }
};
using Context = std::unique_ptr<ca_context, DestroyContext>;
using Properties = std::unique_ptr<ca_proplist, DestroyProperties>;

Properties propertiesOf(const Sound& sound, double gain) {
    ca_proplist* made = nullptr;
    ca_proplist_create(&made);
    Properties properties(made);
    if (const auto* file = std::get_if<std::filesystem::path>(&sound)) {
        ca_proplist_sets(made, CA_PROP_MEDIA_FILENAME, file->c_str());
    } else {
        ca_proplist_sets(made, CA_PROP_EVENT_ID, std::get<std::string>(sound).c_str());
    }
    ca_proplist_sets(made, CA_PROP_MEDIA_ROLE, "alarm");
    ca_proplist_sets(made, CA_PROP_CANBERRA_VOLUME, fixedText(gain, 2).c_str());
    ca_proplist_sets(made, CA_PROP_CANBERRA_CACHE_CONTROL, "never");
    return properties;
}

class CanberraSoundPlayer : public SoundPlayer {
  public:
    explicit CanberraSoundPlayer(sd_event* loop) : wakeUp_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
        sd_event_add_io(loop, &source_, wakeUp_, EPOLLIN, &CanberraSoundPlayer::ended, this);
    }

    ~CanberraSoundPlayer() override {
        context_.reset();  // ends the thread that calls `finished`
        sd_event_source_unref(source_);
        ::close(wakeUp_);
    }
    CanberraSoundPlayer(const CanberraSoundPlayer&) = delete;
    CanberraSoundPlayer& operator=(const CanberraSoundPlayer&) = delete;

    void play(const Sound& sound, const Sound& fallback, std::chrono::seconds atMost,
              const Loudness& loudness) override {
        stop();
        sound_ = sound;
        fallback_ = fallback;
        loudness_ = loudness;
        begin_ = steady_clock::now();
        end_ = begin_ + atMost;
        copyIsPlayable_ = true;
        makeCopy();
        playOnce();
    }

    void stop() override {
        sound_.reset();
        fallback_.reset();
        if (context_) ca_context_cancel(context_.get(), soundNumber);
        faded_.reset();
        takeEnds();
    }

  private:
    // PipeWire and ALSA may ignore the gain of a stream: the copy of a file has its loudness in its samples.
    void makeCopy() {
        faded_.reset();
        const auto* const file = std::get_if<std::filesystem::path>(&*sound_);
        const bool isAsItIs = loudness_.percent >= 100 && loudness_.fadeIn.count() == 0;
        if (!file || isAsItIs || !copyIsPlayable_) return;
        faded_ = fadedSound(*file, loudness_, std::chrono::ceil<std::chrono::seconds>(end_ - begin_));
    }

    // Plays the sound, or its copy while there is one.
    void playOnce() {
        if (!context_) {
            ca_context* made = nullptr;
            ca_context_create(&made);
            context_.reset(made);
            ca_context_change_props(made, CA_PROP_APPLICATION_NAME, "Quode", CA_PROP_APPLICATION_ICON_NAME, "quode",
                                    nullptr);
        }
        const int result = ca_context_play_full(context_.get(), soundNumber, nextProperties().get(),
                                                &CanberraSoundPlayer::finished, this);
        if (result != CA_SUCCESS) giveUp(result);
    }

    Properties nextProperties() const {
        const auto since = std::chrono::floor<std::chrono::milliseconds>(steady_clock::now() - begin_);
        if (!faded_) return propertiesOf(*sound_, gainOf(loudness_, since));
        Properties properties = propertiesOf(faded_->path(), 0.0);
        // Mixers show this name.
        ca_proplist_sets(properties.get(), CA_PROP_MEDIA_NAME, std::get<std::filesystem::path>(*sound_).c_str());
        return properties;
    }

    // After a failure the sound is not tried again before the next ring, with a new connection; only instead of its copy.
    void giveUp(int result) {
        context_.reset();
        copyIsPlayable_ = false;
        if (std::exchange(faded_, nullptr)) return playOnce();
        sound_ = std::exchange(fallback_, std::nullopt);
        if (sound_) return playOnce();
        if (onFailure) onFailure(_("The sound cannot be played: {}.", ca_strerror(result)));
        if (onEnd) onEnd();
    }

    // Called on a thread of the library, which must not be called from there.
    static void finished(ca_context*, std::uint32_t, int result, void* self) {
        auto* const player = static_cast<CanberraSoundPlayer*>(self);
        player->lastResult_ = result;
        const std::uint64_t one = 1;
        [[maybe_unused]] const auto written = ::write(player->wakeUp_, &one, sizeof one);
    }

    void takeEnds() const {
        std::uint64_t count = 0;
        [[maybe_unused]] const auto taken = ::read(wakeUp_, &count, sizeof count);
    }

    static int ended(sd_event_source*, int, std::uint32_t, void* self) {
        auto* const player = static_cast<CanberraSoundPlayer*>(self);
        player->takeEnds();
        const int result = player->lastResult_;
        if (!player->sound_ || result == CA_ERROR_CANCELED) return 0;
        if (result != CA_SUCCESS) {
            player->giveUp(result);
        } else if (steady_clock::now() < player->end_) {
            if (player->faded_) player->loudness_.fadeIn = {};  // it is over with the copy
            player->makeCopy();
            player->playOnce();
        } else {
            player->stop();
            if (player->onEnd) player->onEnd();
        }
        return 0;
    }

    int wakeUp_;
    sd_event_source* source_ = nullptr;
    Context context_;
    std::optional<Sound> sound_;     // while playing
    std::optional<Sound> fallback_;  // until it is needed
    std::unique_ptr<FadedSound> faded_;
    bool copyIsPlayable_ = true;
    Loudness loudness_;
    steady_clock::time_point begin_, end_;
    std::atomic<int> lastResult_ = CA_SUCCESS;
};

}  // namespace

std::unique_ptr<SoundPlayer> canberraSoundPlayer(sd_event* loop) {
    return std::make_unique<CanberraSoundPlayer>(loop);
}

}  // namespace quode

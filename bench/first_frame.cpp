// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// first_frame COUNT PROGRAM [ARGUMENT...]: starts a program some times on the X display of DISPLAY, waits until a window of it
// shows its first picture, and ends it. Printed: the least time from the start to that picture in microseconds, and the most
// memory until then in kilobytes. It looks from outside, at what the display shows, and does so with any program; nothing else
// should open windows there meanwhile.
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <thread>

extern char** environ;

namespace {

using namespace std::chrono_literals;
using std::chrono::steady_clock;

constexpr auto patience = 20s;
constexpr auto pause = 100us;
constexpr std::uint16_t smallestWidth = 100;  // smaller windows are helpers
constexpr std::uint16_t stripWidth = 24;      // of what is looked at: little, for the display draws meanwhile
constexpr std::size_t coloursOfPicture = 4;   // text has more; an empty window has one

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <typename Reply>
using Answer = std::unique_ptr<Reply, Free>;

struct Disconnect {
    void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

/// The windows of a display.
class Display {
  public:
    Display() : connection_(xcb_connect(nullptr, nullptr)) {
        if (!isThere()) return;
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data->root;
        const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(connection_.get(), root, XCB_CW_EVENT_MASK, &events);
        xcb_flush(connection_.get());
    }

    bool isThere() const { return xcb_connection_has_error(connection_.get()) == 0; }

    /// Forgets windows that were opened before.
    void forgetWindows() {
        Answer<xcb_get_input_focus_reply_t>(
            xcb_get_input_focus_reply(connection_.get(), xcb_get_input_focus(connection_.get()), nullptr));
        while (Answer<xcb_generic_event_t>(xcb_poll_for_event(connection_.get()))) {
        }
        windows_.clear();
    }

    /// Whether a window that was opened since then shows a picture.
    bool showsPicture() {
        while (const Answer<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
            if ((event->response_type & 0x7f) != XCB_MAP_NOTIFY) continue;
            windows_.insert(reinterpret_cast<const xcb_map_notify_event_t*>(event.get())->window);
        }
        return std::ranges::any_of(windows_, [this](xcb_window_t window) { return isPainted(window); });
    }

  private:
    bool isPainted(xcb_window_t window) const {
        const Answer<xcb_get_geometry_reply_t> frame(
            xcb_get_geometry_reply(connection_.get(), xcb_get_geometry(connection_.get(), window), nullptr));
        if (!frame || frame->width < smallestWidth) return false;
        const auto x = static_cast<std::int16_t>(frame->width / 8);
        const Answer<xcb_get_image_reply_t> image(
            xcb_get_image_reply(connection_.get(),
                                xcb_get_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, window, x, 0, stripWidth,
                                              frame->height, ~std::uint32_t{0}),
                                nullptr));
        if (!image) return false;
        const auto* const bytes = xcb_get_image_data(image.get());
        std::set<std::uint32_t> colours;
        for (int at = 0; at + 4 <= xcb_get_image_data_length(image.get()); at += 4) {
            std::uint32_t colour = 0;
            std::memcpy(&colour, bytes + at, sizeof colour);
            colours.insert(colour);
            if (colours.size() > coloursOfPicture) return true;
        }
        return false;
    }

    std::unique_ptr<xcb_connection_t, Disconnect> connection_;
    std::set<xcb_window_t> windows_;
};

struct Start {
    std::chrono::microseconds time{};
    long kilobytes = 0;
};

std::optional<Start> startUntilPicture(Display& display, char** arguments) {
    display.forgetWindows();
    const auto start = steady_clock::now();
    pid_t child = 0;
    if (posix_spawnp(&child, arguments[0], nullptr, nullptr, arguments, environ) != 0) return std::nullopt;
    std::optional<std::chrono::microseconds> time;
    while (!time && steady_clock::now() - start < patience) {
        if (waitpid(child, nullptr, WNOHANG) != 0) return std::nullopt;  // it ended
        if (display.showsPicture()) {
            time = std::chrono::duration_cast<std::chrono::microseconds>(steady_clock::now() - start);
        } else {
            std::this_thread::sleep_for(pause);
        }
    }
    kill(child, SIGKILL);
    rusage usage{};
    wait4(child, nullptr, 0, &usage);
    if (!time) return std::nullopt;
    return Start{*time, usage.ru_maxrss};
}

}  // namespace

int main(int count, char** arguments) {
    Display display;
    if (count < 3 || !display.isThere()) {
        std::fputs("first_frame COUNT PROGRAM [ARGUMENT...], with a display\n", stderr);
        return 2;
    }
    int times = 1;
    std::from_chars(arguments[1], arguments[1] + std::strlen(arguments[1]), times);
    auto least = std::chrono::microseconds::max();
    long most = 0;
    for (int i = 0; i < times; ++i) {
        const auto start = startUntilPicture(display, arguments + 2);
        if (!start) {
            std::fprintf(stderr, "first_frame: %s showed nothing\n", arguments[2]);
            return 1;
        }
        least = std::min(least, start->time);
        most = std::max(most, start->kilobytes);
    }
    std::printf("%lld %ld\n", static_cast<long long>(least.count()), most);
    return 0;
}

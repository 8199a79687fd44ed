// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <signal.h>
#include <systemd/sd-event.h>

#include <memory>
#include <stdexcept>

#include "texts/translation.h"

namespace quode {

struct UnrefEventLoop {
    void operator()(sd_event* loop) const { sd_event_unref(loop); }
};
using EventLoop = std::unique_ptr<sd_event, UnrefEventLoop>;

/// A loop that ends with the signals that end services, which it blocks in this thread.
/// @throw std::runtime_error  when the system has none left
inline EventLoop newEventLoop() {
    sigset_t ending;
    sigemptyset(&ending);
    sigaddset(&ending, SIGTERM);
    sigaddset(&ending, SIGINT);
    sigprocmask(SIG_BLOCK, &ending, nullptr);
    sd_event* made = nullptr;
    if (sd_event_new(&made) < 0) throw std::runtime_error(_("The system provides no event loop."));
    EventLoop loop(made);
    sd_event_add_signal(made, nullptr, SIGTERM, nullptr, nullptr);
    sd_event_add_signal(made, nullptr, SIGINT, nullptr, nullptr);
    return loop;
}

}  // namespace quode

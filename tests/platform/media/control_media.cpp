// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// control_media: pauses the players of the session bus at the line "pause" of its standard input, lets them go on at "resume".
#include <sys/epoll.h>

#include <iostream>
#include <string>

#include "platform/sdbus_media_players.h"

namespace {

int takeLine(sd_event_source* source, int, std::uint32_t, void* media) {
    std::string line;
    if (!std::getline(std::cin, line)) return sd_event_exit(sd_event_source_get_event(source), 0);
    auto* const players = static_cast<quode::MediaPlayers*>(media);
    line == "pause" ? players->pause() : players->resume();
    return 0;
}

}  // namespace

int main() {
    sd_event* loop = nullptr;
    if (sd_event_new(&loop) < 0) return 1;
    auto media = quode::sdBusMediaPlayers(loop);
    sd_event_add_io(loop, nullptr, 0, EPOLLIN | EPOLLHUP, &takeLine, media.get());
    const int result = sd_event_loop(loop);
    media.reset();
    sd_event_unref(loop);
    return result;
}

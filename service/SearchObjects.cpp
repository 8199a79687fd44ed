// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// Answers in the searches of GNOME Shell (org.gnome.Shell.SearchProvider2) and Plasma (org.kde.krunner1).
#include <spawn.h>

#include "platform/folders.h"
#include "service/bus.h"
#include "service/queries.h"
#include "terminal/reporting.h"

extern char** environ;

namespace quode::service {
namespace {

constexpr int exactMatch = 100, possibleMatch = 30;  // as KRunner counts
constexpr double bestRelevance = 0.9, relevanceStep = 0.1;

/// The panel shows what was chosen; where it is not installed nothing happens.
void showPanel() {
    std::string program = executablePath().parent_path() / "quode-panel";
    char* arguments[] = {program.data(), nullptr};
    pid_t child = 0;
    posix_spawn(&child, program.c_str(), nullptr, nullptr, arguments, environ);
}

std::vector<std::string> textsIn(sd_bus_message* call) {
    std::vector<std::string> texts;
    check(sd_bus_message_enter_container(call, 'a', "s"));
    const char* text = nullptr;
    while (sd_bus_message_read(call, "s", &text) > 0) texts.emplace_back(text);
    check(sd_bus_message_exit_container(call));
    return texts;
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) text += word + " ";
    return text;
}

// --- GNOME Shell

void replyWithResults(sd_bus_message* call, void* context, const std::string& query) {
    const Message reply = replyTo(call);
    append(reply.get(), 'a', "s", [&] {
        for (const Finding& each : findingsOf(contextOf(context).session(), query)) {
            check(sd_bus_message_append(reply.get(), "s", each.id.c_str()));
        }
    });
    send(reply);
}

int initialResults(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] { replyWithResults(call, context, joined(textsIn(call))); });
}

int laterResults(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        check(sd_bus_message_skip(call, "as"));
        replyWithResults(call, context, joined(textsIn(call)));
    });
}

int resultMetas(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        const std::vector<std::string> ids = textsIn(call);
        const Message reply = replyTo(call);
        append(reply.get(), 'a', "a{sv}", [&] {
            for (const std::string& id : ids) {
                const auto finding = findingOf(contextOf(context).session(), id);
                if (!finding) continue;
                append(reply.get(), 'a', "{sv}", [&] {
                    appendEntry(reply.get(), "id", finding->id);
                    appendEntry(reply.get(), "name", finding->title);
                    appendEntry(reply.get(), "description", finding->text);
                    appendEntry(reply.get(), "gicon", "quode");
                    appendEntry(reply.get(), "clipboardText", finding->title + ", " + finding->text);
                });
            }
        });
        send(reply);
    });
}

int activate(sd_bus_message* call, void*, sd_bus_error* error) {
    return answering(error, [&] {
        showPanel();
        check(sd_bus_reply_method_return(call, ""));
    });
}

constexpr auto anyone = SD_BUS_VTABLE_UNPRIVILEGED;

const sd_bus_vtable gnomeVtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_NAMES("GetInitialResultSet", "as", SD_BUS_PARAM(terms), "as", SD_BUS_PARAM(results),
                             initialResults, anyone),
    SD_BUS_METHOD_WITH_NAMES("GetSubsearchResultSet", "asas", SD_BUS_PARAM(previous_results) SD_BUS_PARAM(terms), "as",
                             SD_BUS_PARAM(results), laterResults, anyone),
    SD_BUS_METHOD_WITH_NAMES("GetResultMetas", "as", SD_BUS_PARAM(identifiers), "aa{sv}", SD_BUS_PARAM(metas),
                             resultMetas, anyone),
    SD_BUS_METHOD_WITH_NAMES("ActivateResult", "sasu",
                             SD_BUS_PARAM(identifier) SD_BUS_PARAM(terms) SD_BUS_PARAM(timestamp), "", , activate,
                             anyone),
    SD_BUS_METHOD_WITH_NAMES("LaunchSearch", "asu", SD_BUS_PARAM(terms) SD_BUS_PARAM(timestamp), "", , activate,
                             anyone),
    SD_BUS_VTABLE_END,
};

// --- KRunner

int match(sd_bus_message* call, void* context, sd_bus_error* error) {
    return answering(error, [&] {
        const char* query = nullptr;
        check(sd_bus_message_read(call, "s", &query));
        const Message reply = replyTo(call);
        append(reply.get(), 'a', "(sssida{sv})", [&] {
            double relevance = bestRelevance;
            int kind = exactMatch;
            for (const Finding& each : findingsOf(contextOf(context).session(), query)) {
                append(reply.get(), 'r', "sssida{sv}", [&] {
                    check(sd_bus_message_append(reply.get(), "sssid", each.id.c_str(), each.title.c_str(), "quode",
                                                kind, relevance));
                    append(reply.get(), 'a', "{sv}", [&] { appendEntry(reply.get(), "subtext", each.text); });
                });
                relevance -= relevanceStep;
                kind = possibleMatch;
            }
        });
        send(reply);
    });
}

int actions(sd_bus_message* call, void*, sd_bus_error* error) {
    return answering(error, [&] { check(sd_bus_reply_method_return(call, "a(sss)", 0)); });
}

const sd_bus_vtable plasmaVtable[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD_WITH_NAMES("Match", "s", SD_BUS_PARAM(query), "a(sssida{sv})", SD_BUS_PARAM(matches), match, anyone),
    SD_BUS_METHOD_WITH_NAMES("Actions", "", , "a(sss)", SD_BUS_PARAM(actions), actions, anyone),
    SD_BUS_METHOD_WITH_NAMES("Run", "ss", SD_BUS_PARAM(match) SD_BUS_PARAM(action), "", , activate, anyone),
    SD_BUS_VTABLE_END,
};

}  // namespace

void addSearch(Context& context) {
    check(sd_bus_add_object_vtable(context.bus, nullptr, objectPath, "org.gnome.Shell.SearchProvider2", gnomeVtable,
                                   &context));
    check(sd_bus_add_object_vtable(context.bus, nullptr, objectPath, "org.kde.krunner1", plasmaVtable, &context));
}

}  // namespace quode::service

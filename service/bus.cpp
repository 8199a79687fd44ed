// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "service/bus.h"

#include <cstring>
#include <stdexcept>

#include "app/failure.h"
#include "companion/UserDatabase.h"

namespace quode::service {
namespace {

const char* nameOf(app::ExitCode code) {
    switch (code) {
        case app::ExitCode::notFound:
            return notFoundError;
        case app::ExitCode::usage:
            return invalidError;
        case app::ExitCode::damagedData:
            return installationError;
        case app::ExitCode::userData:
            return userDataError;
        default:
            return internalError;
    }
}

const char* nameOf(UserDatabaseError::Reason reason) {
    return reason == UserDatabaseError::Reason::refused ? invalidError : userDataError;
}

}  // namespace

int answering(sd_bus_error* error, const std::function<void()>& answer) {
    try {
        answer();
        return 1;
    } catch (const BusError& failure) {
        return sd_bus_error_set(error, failure.name(), failure.what());
    } catch (const app::Failure& failure) {
        return sd_bus_error_set(error, nameOf(failure.code()), failure.what());
    } catch (const UserDatabaseError& failure) {
        return sd_bus_error_set(error, nameOf(failure.reason()), failure.what());
    } catch (const CityDatabaseError& failure) {
        return sd_bus_error_set(error, installationError, failure.what());
    } catch (const std::exception& failure) {
        return sd_bus_error_set(error, internalError, failure.what());
    }
}

void check(int result) {
    if (result < 0) throw std::runtime_error(std::strerror(-result));
}

Message replyTo(sd_bus_message* call) {
    sd_bus_message* made = nullptr;
    check(sd_bus_message_new_method_return(call, &made));
    return Message(made);
}

void send(const Message& reply) {
    check(sd_bus_send(nullptr, reply.get(), nullptr));
}

void append(sd_bus_message* message, char type, const char* contents, const std::function<void()>& fill) {
    check(sd_bus_message_open_container(message, type, contents));
    fill();
    check(sd_bus_message_close_container(message));
}

void appendEntry(sd_bus_message* message, const char* key, const std::string& value) {
    check(sd_bus_message_append(message, "{sv}", key, "s", value.c_str()));
}

}  // namespace quode::service

// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// What the objects on the bus share.
#pragma once

#include <sys/types.h>

#include <functional>
#include <memory>
#include <string>

#include "platform/sd_bus.h"
#include "service/HomeWatch.h"

namespace quode::service {

inline constexpr const char* busName = "org.quode.Quode1";
inline constexpr const char* objectPath = "/org/quode/Quode1";

// The names of our errors.
inline constexpr const char* notFoundError = "org.quode.Error.NotFound";
inline constexpr const char* invalidError = "org.quode.Error.InvalidArgument";
inline constexpr const char* installationError = "org.quode.Error.DamagedInstallation";
inline constexpr const char* userDataError = "org.quode.Error.UserData";
inline constexpr const char* notRingingError = "org.quode.Error.NotRinging";
inline constexpr const char* busyError = "org.quode.Error.Busy";
inline constexpr const char* internalError = "org.quode.Error.Internal";

/// An error with one of these names.
class BusError : public std::runtime_error {
  public:
    BusError(const char* name, const std::string& message) : std::runtime_error(message), name_(name) {}
    const char* name() const { return name_; }

  private:
    const char* name_;
};

/// Runs what answers a call. What it throws becomes an error on the bus, with one of our names.
/// @return what a handler of sd-bus returns
int answering(sd_bus_error* error, const std::function<void()>& answer);

/// Throws when sd-bus reports a failure.
void check(int result);

/// The empty answer to a call, to be filled and sent.
Message replyTo(sd_bus_message* call);
void send(const Message& reply);

/// Appends an array or struct; `fill` appends what is in it.
void append(sd_bus_message* message, char type, const char* contents, const std::function<void()>& fill);

/// Appends {key, variant of a text}.
void appendEntry(sd_bus_message* message, const char* key, const std::string& value);

/// What the objects work with.
struct Context {
    sd_bus* bus = nullptr;
    HomeWatch* home = nullptr;
    std::function<void(const std::string& command)> tellRinger;  ///< empty without a ringer
    pid_t trial = 0;                                             ///< of an alarm, that was started last

    app::Session& session() const { return home->session(); }
};

/// The context, from the pointer that sd-bus hands to each answer.
inline Context& contextOf(void* pointer) {
    return *static_cast<Context*>(pointer);
}

// Each adds its interface to the object, for the life of the bus. The context must outlive it.
void addHome(Context& context);
void addTimes(Context& context);
void addPlaces(Context& context);
void addAlarms(Context& context);
void addSearch(Context& context);

}  // namespace quode::service

// quode alarm list: the six alarms.
#include "cli/commands.h"
#include "cli/place.h"
#include "cli/ringer.h"
#include "cli/session.h"
#include "cli/user_alarms.h"
#include "cli/user_texts.h"

namespace quode::cli {
namespace {

void runList(Session& session, const Arguments&) {
    showAlarms(session, readAlarms(session));
}

}  // namespace

Command alarmListCommand() {
    return {"list", "Show the alarms of the six prayers", {}, runList};
}

}  // namespace quode::cli

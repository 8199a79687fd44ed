// quode city list: the user's cities.
#include "cli/commands.h"
#include "cli/session.h"
#include "cli/user_cities.h"
#include "cli/user_data.h"

namespace quode::cli {
namespace {

void runList(Session& session, const Arguments&) {
    const std::optional<UserDatabase> database = userDatabaseToRead(session);
    showCities(session, database ? database->cities() : std::vector<UserCity>{});
}

}  // namespace

Command cityListCommand() {
    return {"list", "Show your cities", {}, runList};
}

}  // namespace quode::cli

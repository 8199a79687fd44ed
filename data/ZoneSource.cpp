// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "data/ZoneSource.h"

#include <utility>

#include "data/sqlite_reading.h"
#include "data/zone_edition.h"

namespace quode {
namespace {

constexpr const char* editionQuery = "SELECT EDITION FROM EDITION WHERE WHAT = 'zones'";

}  // namespace

ZoneSource::ZoneSource(sqlite3* cities, std::filesystem::path zoneFolder)
    : cities_(cities), zoneFolder_(std::move(zoneFolder)) {}

std::shared_ptr<const ZoneKnowledge> ZoneSource::of(const std::string& name, std::string_view clock) {
    std::shared_ptr<const ZoneKnowledge>& known = known_[name];
    if (!known) known = std::make_shared<const ZoneKnowledge>(read(name, clock));
    return known;
}

ZoneKnowledge ZoneSource::read(const std::string& name, std::string_view clock) {
    readEditions();
    ZoneKnowledge known;
    known.edition = *edition_;
    known.systemEdition = systemEdition_;
    if (isNewerEdition(systemEdition_, *edition_)) known.zone = SystemZone::load(zoneFolder_, name);
    known.isOfSystem = known.zone.has_value();
    if (known.isOfSystem) {
        known.edition = systemEdition_;
    } else {
        known.zone = SystemZone::parseText(clock);
    }
    return known;
}

void ZoneSource::readEditions() {
    if (edition_) return;
    const sqlite::Statement row = sqlite::prepare(cities_, editionQuery);
    edition_ = row && sqlite3_step(row.get()) == SQLITE_ROW ? sqlite::text(row.get(), 0) : std::string();
    systemEdition_ = zoneEditionOf(zoneFolder_);
}

}  // namespace quode

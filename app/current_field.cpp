// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/current_field.h"

#include "app/session.h"
#include "astro/MagneticVariation.h"
#include "astro/WorldMagneticModel.h"
#include "common/numbers.h"
#include "texts/translation.h"

namespace quode::app {
namespace {

constexpr double trustedHorizontal = 2000.0;  // nT
constexpr double metresPerKm = 1000.0;

}  // namespace

CurrentField currentField(const Site& site, const VAKDate& date) {
    const double year = MagneticVariation::Julday(date.Days, date.Months, date.Years);
    const auto field = WorldMagneticModel::at(year, site.latitude, site.longitude, site.choice.height / metresPerKm);
    return {field.declination, year - WorldMagneticModel::epoch, WorldMagneticModel::isValidIn(date.Years),
            field.horizontal < trustedHorizontal};
}

std::string currentFieldRemark(Session& session, const CurrentField& field) {
    const std::string epoch = fixedText(WorldMagneticModel::epoch, 0), end = fixedText(WorldMagneticModel::validTo, 0);
    if (!field.isValid) return _("{}, meant for {} to {} only", WorldMagneticModel::name, epoch, end);
    if (field.isWeak) return _("{}; near a magnetic pole a compass cannot be trusted", WorldMagneticModel::name);
    return _("{}, {} years old", WorldMagneticModel::name, session.decimal(field.ageYears, 1));
}

Json currentFieldJson(const CurrentField& field) {
    return object({{"degrees", field.declination},
                   {"model", WorldMagneticModel::name},
                   {"epoch", WorldMagneticModel::epoch},
                   {"valid_to", WorldMagneticModel::validTo},
                   {"age_years", field.ageYears},
                   {"valid", field.isValid},
                   {"compass_unreliable", field.isWeak}});
}

}  // namespace quode::app

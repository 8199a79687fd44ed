// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
// The magnetic declination by the current model, beside the one that the compass turns by.
#pragma once

#include <string>

#include "app/json.h"
#include "data/city_day.h"

namespace quode::app {

class Session;

struct CurrentField {
    double declination = 0.0;  ///< degrees, east positive
    double ageYears = 0.0;     ///< of the model on the day; negative before its epoch
    bool isValid = false;      ///< the model is meant for the day
    bool isWeak = false;       ///< so near to a magnetic pole that a compass cannot be trusted
};

CurrentField currentField(const Site& site, const VAKDate& date);

/// "WMM2025, 1.9 years old"; says so where the model is not meant for the day.
std::string currentFieldRemark(Session& session, const CurrentField& field);

Json currentFieldJson(const CurrentField& field);

}  // namespace quode::app

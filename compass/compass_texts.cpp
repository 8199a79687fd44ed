// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "compass/compass_texts.h"

#include <fmt/format.h>

#include <cmath>
#include <stdexcept>

#include "astro/MagneticVariation.h"
#include "astro/WorldMagneticModel.h"
#include "texts/translation.h"

namespace quode {
namespace {

constexpr std::string_view modelName = "IGRF-11";
constexpr std::string_view noAngle = "--°--'";

double onCircle(double degrees) {
    const double rest = std::fmod(degrees, 360.0);
    return rest < 0.0 ? rest + 360.0 : rest;
}

std::string signedByLetter(GlobalFuncs& services, double declination) {
    const std::string angle = degreesAndMinutes(std::abs(declination));
    const auto letter = compassText(services, declination < 0.0 ? compass_text::west : compass_text::east);
    return letter ? angle + " " + *letter : (declination < 0.0 ? "-" : "+") + angle;
}

void append(std::vector<std::string>& lines, std::optional<std::string> line) {
    if (line) lines.push_back(std::move(*line));
}

}  // namespace

std::string degreesAndMinutes(double degrees) {
    if (!std::isfinite(degrees)) return std::string(noAngle);
    const long minutes = std::lround(degrees * 60.0) % (360 * 60);
    return fmt::format("{}°{:02d}'", minutes / 60, minutes % 60);
}

std::string wholeDegrees(double degrees) {
    if (!std::isfinite(degrees)) return "--°";
    return fmt::format("{}°", std::lround(onCircle(degrees)) % 360);
}

std::optional<std::string> compassText(GlobalFuncs& services, compass_text::Id id,
                                       std::initializer_list<FormatValue> values) {
    const auto format = services.GetKeyValue(id);
    if (!format || format->empty()) return std::nullopt;
    try {
        return filledFormat(*format, values);
    } catch (const std::invalid_argument& error) {
        services.NSLogToFile(error.what());
        return std::nullopt;
    }
}

std::vector<std::string> compassNumbers(GlobalFuncs& services, double qiblaAngle, double declination) {
    std::vector<std::string> lines;
    append(lines, compassText(services, compass_text::bearing, {services.getQiblaAngleStr(qiblaAngle)}));
    const std::string magnetic = degreesAndMinutes(onCircle(-qiblaAngle - declination));
    append(lines, compassText(services, compass_text::magneticBearing, {magnetic}));
    append(lines, compassText(services, compass_text::declination, {signedByLetter(services, declination)}));
    const std::string epoch = fmt::format("{:.1f}", MagneticVariation::modelEpoch);
    append(lines, compassText(services, compass_text::model, {modelName, epoch}));
    return lines;
}

std::string currentFieldLine(GlobalFuncs& services, double latitude, double longitude) {
    const VAKDate today = services.GetCurrentDateTime();
    const double year = MagneticVariation::Julday(today.Days, today.Months, today.Years);
    const auto field = WorldMagneticModel::at(year, latitude, longitude, 0.0);
    const std::string angle = signedByLetter(services, field.declination);
    const std::string epoch = fmt::format("{:.1f}", WorldMagneticModel::epoch);
    if (!WorldMagneticModel::isValidIn(today.Years)) {
        return _("{} ({}), not meant for this year : {}", WorldMagneticModel::name, epoch, angle);
    }
    const std::string age = fmt::format("{:.1f}", year - WorldMagneticModel::epoch);
    return _("{} ({}), {} years old : {}", WorldMagneticModel::name, epoch, age, angle);
}

std::array<std::string, 4> cardinalLetters(GlobalFuncs& services) {
    std::array<std::string, 4> letters;
    const std::array ids{compass_text::north, compass_text::east, compass_text::south, compass_text::west};
    for (std::size_t i = 0; i < letters.size(); ++i) letters[i] = compassText(services, ids[i]).value_or("");
    return letters;
}

}  // namespace quode

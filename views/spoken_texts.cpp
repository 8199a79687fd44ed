// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "views/spoken_texts.h"

#include <array>

#include "common/LanguagePack.h"

namespace quode {
namespace {

using Names = std::array<const char*, 7>;  // in the order of SpokenText

constexpr Names turkish{"Alarm: %@",         "Kıble pusulası", "Şehir bilgileri", "Şehir",
                        "Şehir ayrıntıları", "Dinî günler",    "Diğer vakitler"};
constexpr Names english{"Alarm for %@",        "Qibla compass",  "City information",    "City",
                        "Details of the city", "Religious days", "Further prayer times"};
constexpr Names french{"Alarme pour %@",      "Boussole de la qibla", "Informations sur la ville", "Ville",
                       "Détails de la ville", "Jours religieux",      "Autres heures de prière"};
constexpr Names german{"Wecker für %@",        "Qibla-Kompass",  "Angaben zum Ort",     "Ort",
                       "Einzelheiten zum Ort", "Religiöse Tage", "Weitere Gebetszeiten"};

const Names& namesOf(int languageId) {
    return inLanguage(languageId, turkish, english, french, german);
}

}  // namespace

std::string spokenText(SpokenText text, int languageId) {
    return namesOf(languageId)[static_cast<std::size_t>(text)];
}

}  // namespace quode

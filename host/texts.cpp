// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "host/texts.h"

#include "common/LanguagePack.h"

namespace quode::host {
namespace {

constexpr Texts english{
    .open = "Show prayer times",
    .quit = "Quit",
    .noCity = "No city was chosen",
    .addCity = "Choose your city in a terminal: quode city add NAME",
    .withinHours = "within {} h",
    .withinMinutes = "within {} min",
};

constexpr Texts turkish{
    .open = "Namaz vakitlerini göster",
    .quit = "Çık",
    .noCity = "Şehir seçilmedi",
    .addCity = "Şehrinizi bir uçbirimde seçin: quode city add AD",
    .withinHours = "{} saat içinde",
    .withinMinutes = "{} dakika içinde",
};

constexpr Texts french{
    .open = "Afficher les heures de prière",
    .quit = "Quitter",
    .noCity = "Aucune ville choisie",
    .addCity = "Choisissez votre ville dans un terminal : quode city add NOM",
    .withinHours = "d’ici {} h",
    .withinMinutes = "d’ici {} min",
};

constexpr Texts german{
    .open = "Gebetszeiten anzeigen",
    .quit = "Beenden",
    .noCity = "Keine Stadt gewählt",
    .addCity = "Wählen Sie Ihre Stadt in einem Terminal: quode city add NAME",
    .withinHours = "innerhalb von {} Std.",
    .withinMinutes = "innerhalb von {} Min.",
};

}  // namespace

const Texts& textsOf(int languageId) {
    return inLanguage(languageId, turkish, english, french, german);
}

}  // namespace quode::host

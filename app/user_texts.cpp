// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/user_texts.h"

#include "common/LanguagePack.h"

namespace quode::app {
namespace {

constexpr UserTexts english{
    .home = "home",
    .noCities = "You have chosen no city yet. To choose one: quode city home NAME.",
    .unknownCity = "not in the city database any more",
    .on = "on",
    .off = "off",
    .atTheTime = "at the time",
    .before = "{} min before",
    .after = "{} min after",
    .snoozed = "snoozed",
    .testRing = "A test of the alarm",
    .stop = "Stop",
    .noneOn = "No alarm is on. To switch one on: quode alarm on PRAYER.",
    .quodeRings = "The alarm service of Quode rings; it is running.",
    .evolutionRings = "Evolution rings, by its reminders; the alarm service of Quode renews the events.",
};

constexpr UserTexts turkish{
    .home = "ana şehir",
    .noCities = "Henüz şehir seçmediniz. Seçmek için: quode city home AD.",
    .unknownCity = "artık şehir veri tabanında yok",
    .on = "açık",
    .off = "kapalı",
    .atTheTime = "vaktinde",
    .before = "{} dk önce",
    .after = "{} dk sonra",
    .snoozed = "ertelendi",
    .testRing = "Alarm denemesi",
    .stop = "Durdur",
    .noneOn = "Açık alarm yok. Açmak için: quode alarm on VAKİT.",
    .quodeRings = "Quode alarm hizmeti çalar; çalışıyor.",
    .evolutionRings = "Evolution anımsatıcılarıyla çalar; olayları Quode alarm hizmeti yeniler.",
};

constexpr UserTexts french{
    .home = "domicile",
    .noCities = "Vous n’avez pas encore choisi de ville. Pour en choisir une\u00a0: quode city home NOM.",
    .unknownCity = "n’est plus dans la base des villes",
    .on = "activée",
    .off = "désactivée",
    .atTheTime = "à l’heure",
    .before = "{} min avant",
    .after = "{} min après",
    .snoozed = "reportée",
    .testRing = "Un essai de l’alarme",
    .stop = "Arrêter",
    .noneOn = "Aucune alarme n’est activée. Pour en activer une\u00a0: quode alarm on PRIÈRE.",
    .quodeRings = "Le service d’alarme de Quode sonne\u00a0; il est en marche.",
    .evolutionRings = "Evolution sonne, par ses rappels\u00a0; le service d’alarme de Quode renouvelle les événements.",
};

constexpr UserTexts german{
    .home = "Heimatort",
    .noCities = "Sie haben noch keine Stadt gewählt. Eine wählen: quode city home NAME.",
    .unknownCity = "nicht mehr in der Ortsdatenbank",
    .on = "an",
    .off = "aus",
    .atTheTime = "zur Zeit",
    .before = "{} Min. vorher",
    .after = "{} Min. danach",
    .snoozed = "verschoben",
    .testRing = "Eine Probe des Weckers",
    .stop = "Stopp",
    .noneOn = "Kein Wecker ist an. Einen einschalten: quode alarm on GEBET.",
    .quodeRings = "Es klingelt der Weckdienst von Quode; er läuft.",
    .evolutionRings = "Es klingelt Evolution mit seinen Erinnerungen; der Weckdienst von Quode erneuert die Termine.",
};

}  // namespace

const UserTexts& userTextsOf(int languageId) {
    return inLanguage(languageId, turkish, english, french, german);
}

}  // namespace quode::app

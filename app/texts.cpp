// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "app/texts.h"

#include <fmt/format.h>

#include "common/LanguagePack.h"

namespace quode::app {
namespace {

constexpr Texts english{
    .weekdays = {"Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"},
    .weekdaysShort = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"},
    .longDate = "{0} {1} {2} {3}",
    .date = "{1} {2} {3}",
    .firstOfMonth = "1",
    .decimalMark = ".",
    .hoursMinutes = "{} h {} min",
    .minutes = "{} min",
    .in = "in {}",
    .byTable = "Hijri, by the table",
    .byCrescent = "Hijri, by the crescent",
    .outsideTable = "outside the Hijri table",
    .tomorrow = "tomorrow",
    .afterMidnight = "after midnight",
    .dayBefore = "the evening before",
    .noSummerTime = "no summer time",
    .clocksForward = "clocks go forward on {}",
    .clocksBack = "clocks go back on {}",
    .fromNorth = "clockwise from true north",
    .declination = "Declination",
    .declinationRemark = "magnetic, east is +; {} ({})",
    .margin = "The times include a margin (temkin) of {}, for {} m of height; 31 s and more round the minute up.",
    .marginValue = "{} min {:02} s",
    .fallbackLatitude = "The Sun does not both rise and set here on this day: the times are those of latitude {}.",
    .fallbackImsak =
        "The Sun does not sink 19° below the horizon: the time is that of the nearest earlier day on which "
        "it does.",
    .fallbackYatsi =
        "The Sun does not sink 17° below the horizon: the time is that of the nearest earlier day on which "
        "it does.",
    .chosenByZone = "{} is the largest city of this system's time zone, {}. To choose another: quode city home NAME.",
    .chosenByDefault =
        "{} is shown because this system's time zone, {}, belongs to no city. To choose one: quode city home NAME.",
    .clockOfNearest = "clock of {}, {} km away",
    .zoneWarning = "{0}: its stored clock is {1}, that of this system {2}, {3}. The times follow the stored one.",
    .zoneWarningDay = "on {}",
    .zoneWarningDays = "on {0} days from {1} to {2}",
    .bearing = "Qibla",
    .compassBearing = "Compass",
    .compassRemark = "on a magnetic compass",
    .distance = "Distance",
    .kaabaDistance = "to the Kaaba",
    .sunInQibla = "the Sun stands in this direction",
    .noSunInQibla = "the Sun is never in this direction that day",
    .kaabaMeridian =
        "This place lies on the meridian of the Kaaba. The formula gives 0° on both sides of it; the Kaaba lies due "
        "{}.",
    .dueNorth = "north",
    .dueSouth = "south",
    .sunrise = "Sunrise",
    .sunset = "Sunset",
    .moonrise = "Moonrise",
    .moonset = "Moonset",
    .moonAtSunset = "Moon at sunset",
    .moonPhases = {"New Moon", "Waxing crescent", "First quarter", "Waxing gibbous", "Full Moon", "Waning gibbous",
                   "Last quarter", "Waning crescent"},
    .transit = "Transit",
    .illuminated = "Illuminated",
    .illuminatedValue = "{} %, {}",
    .waxing = "waxing",
    .waning = "waning",
    .elongation = "Elongation",
    .age = "Age",
    .ageValue = "{} days",
    .nextNewMoon = "New Moon",
    .nextNewMoonValue = "in {} days",
    .litRight = "lit on the right",
    .litLeft = "lit on the left",
    .notLit = "not lit",
    .fullyLit = "fully lit",
    .gregorian = "Gregorian",
    .julian = "Julian",
    .rumi = "Rumi",
    .season = "Season",
    .summerSeason = "day {} of the summer half-year, from 6 May",
    .winterSeason = "day {} of the winter half-year, from 8 November",
    .coordinates = "Coordinates",
    .elevation = "Elevation",
    .population = "Population",
};

constexpr Texts turkish{
    .weekdays = {"Pazar", "Pazartesi", "Salı", "Çarşamba", "Perşembe", "Cuma", "Cumartesi"},
    .weekdaysShort = {"Paz", "Pzt", "Sal", "Çar", "Per", "Cum", "Cmt"},
    .longDate = "{1} {2} {3} {0}",
    .date = "{1} {2} {3}",
    .firstOfMonth = "1",
    .decimalMark = ",",
    .hoursMinutes = "{} sa {} dk",
    .minutes = "{} dk",
    .in = "{} sonra",
    .byTable = "Hicrî, takvim cetveline göre",
    .byCrescent = "Hicrî, hilale göre",
    .outsideTable = "Hicrî cetvelin dışında",
    .tomorrow = "yarın",
    .afterMidnight = "gece yarısından sonra",
    .dayBefore = "bir önceki akşam",
    .noSummerTime = "yaz saati yok",
    .clocksForward = "saatler ileri alınır: {}",
    .clocksBack = "saatler geri alınır: {}",
    .fromNorth = "gerçek kuzeyden saat yönünde",
    .declination = "Sapma",
    .declinationRemark = "manyetik, doğu +; {} ({})",
    .margin = "Vakitlere {} temkin katılmıştır ({} m yükseklik için); 31 sn ve üstü dakikaya tamamlanır.",
    .marginValue = "{} dk {:02} sn",
    .fallbackLatitude = "Güneş bugün burada hem doğup hem batmıyor: vakitler {} enlemine aittir.",
    .fallbackImsak = "Güneş ufkun 19° altına inmiyor: vakit, indiği en yakın önceki güne aittir.",
    .fallbackYatsi = "Güneş ufkun 17° altına inmiyor: vakit, indiği en yakın önceki güne aittir.",
    .chosenByZone =
        "{} bu sistemin saat dilimindeki ({}) en büyük şehirdir. Başkasını seçmek için: quode city "
        "home AD.",
    .chosenByDefault =
        "{} gösteriliyor, çünkü bu sistemin saat dilimi ({}) hiçbir şehre ait değil. Seçmek için: quode "
        "city home AD.",
    .clockOfNearest = "{} saatiyle, {} km uzakta",
    .zoneWarning = "{0}: kayıtlı saat {1}, bu sisteminki {2} ({3}). Vakitler kayıtlı saate göredir.",
    .zoneWarningDay = "{}",
    .zoneWarningDays = "{1} – {2} arasında {0} gün",
    .bearing = "Kıble",
    .compassBearing = "Pusula",
    .compassRemark = "manyetik pusulada",
    .distance = "Uzaklık",
    .kaabaDistance = "Kâbe’ye",
    .sunInQibla = "güneş kıble yönünde",
    .noSunInQibla = "güneş o gün kıble yönüne gelmez",
    .kaabaMeridian = "Burası Kâbe’nin boylamındadır. Formül iki yanda da 0° verir; Kâbe tam {} yönündedir.",
    .dueNorth = "kuzey",
    .dueSouth = "güney",
    .sunrise = "Güneşin doğuşu",
    .sunset = "Güneşin batışı",
    .moonrise = "Ayın doğuşu",
    .moonset = "Ayın batışı",
    .moonAtSunset = "Güneş batarken Ay",
    .moonPhases = {"Yeni ay", "Hilal (büyüyen)", "İlk dördün", "Şişkin ay (büyüyen)", "Dolunay", "Şişkin ay (küçülen)",
                   "Son dördün", "Hilal (küçülen)"},
    .transit = "Tepe noktası",
    .illuminated = "Aydınlık",
    .illuminatedValue = "%{}, {}",
    .waxing = "büyüyor",
    .waning = "küçülüyor",
    .elongation = "Uzanım",
    .age = "Yaş",
    .ageValue = "{} gün",
    .nextNewMoon = "Yeni ay",
    .nextNewMoonValue = "{} gün sonra",
    .litRight = "sağ yanı aydınlık",
    .litLeft = "sol yanı aydınlık",
    .notLit = "karanlık",
    .fullyLit = "tamamı aydınlık",
    .gregorian = "Miladî",
    .julian = "Jülyen",
    .rumi = "Rumî",
    .season = "Mevsim",
    .summerSeason = "Hızır günlerinin {}. günü (6 Mayıs’tan)",
    .winterSeason = "Kasım günlerinin {}. günü (8 Kasım’dan)",
    .coordinates = "Koordinatlar",
    .elevation = "Yükseklik",
    .population = "Nüfus",
};

constexpr Texts french{
    .weekdays = {"dimanche", "lundi", "mardi", "mercredi", "jeudi", "vendredi", "samedi"},
    .weekdaysShort = {"dim", "lun", "mar", "mer", "jeu", "ven", "sam"},
    .longDate = "{0} {1} {2} {3}",
    .date = "{1} {2} {3}",
    .firstOfMonth = "1er",
    .decimalMark = ",",
    .hoursMinutes = "{} h {} min",
    .minutes = "{} min",
    .in = "dans {}",
    .byTable = "Hégire, selon la table",
    .byCrescent = "Hégire, selon le croissant",
    .outsideTable = "hors de la table hégirienne",
    .tomorrow = "demain",
    .afterMidnight = "après minuit",
    .dayBefore = "la veille au soir",
    .noSummerTime = "pas d’heure d’été",
    .clocksForward = "avancée le {}",
    .clocksBack = "reculée le {}",
    .fromNorth = "depuis le nord vrai, sens horaire",
    .declination = "Déclinaison",
    .declinationRemark = "magnétique, est +\u00a0; {} ({})",
    .margin =
        "Les heures comprennent une marge (temkin) de {}, pour {} m d’altitude\u00a0; à partir de 31 s, la minute est "
        "arrondie vers le haut.",
    .marginValue = "{} min {:02} s",
    .fallbackLatitude =
        "Le Soleil ne se lève et ne se couche pas ici ce jour-là\u00a0: les heures sont celles de la latitude "
        "{}.",
    .fallbackImsak =
        "Le Soleil ne descend pas à 19° sous l’horizon\u00a0: l’heure est celle du dernier jour où il y descend.",
    .fallbackYatsi =
        "Le Soleil ne descend pas à 17° sous l’horizon\u00a0: l’heure est celle du dernier jour où il y descend.",
    .chosenByZone =
        "{} est la plus grande ville du fuseau horaire de ce système, {}. Pour en choisir une autre\u00a0: quode "
        "city home NOM.",
    .chosenByDefault =
        "{} est affichée parce que le fuseau horaire de ce système, {}, n’a aucune ville. Pour en choisir "
        "une\u00a0: quode city home NOM.",
    .clockOfNearest = "heure de {}, à {} km",
    .zoneWarning =
        "{0}\u00a0: l’heure enregistrée est {1}, celle de ce système {2}, {3}. Les heures suivent celle qui est "
        "enregistrée.",
    .zoneWarningDay = "le {}",
    .zoneWarningDays = "pendant {0} jours, du {1} au {2}",
    .bearing = "Qibla",
    .compassBearing = "Boussole",
    .compassRemark = "sur une boussole magnétique",
    .distance = "Distance",
    .kaabaDistance = "jusqu’à la Kaaba",
    .sunInQibla = "le Soleil est dans cette direction",
    .noSunInQibla = "le Soleil n’y passe pas ce jour-là",
    .kaabaMeridian =
        "Ce lieu est sur le méridien de la Kaaba. La formule y donne 0° des deux côtés\u00a0; la Kaaba est plein {}.",
    .dueNorth = "nord",
    .dueSouth = "sud",
    .sunrise = "Lever du Soleil",
    .sunset = "Coucher du Soleil",
    .moonrise = "Lever de la Lune",
    .moonset = "Coucher de la Lune",
    .moonAtSunset = "Lune au coucher du Soleil",
    .moonPhases = {"Nouvelle Lune", "Premier croissant", "Premier quartier", "Gibbeuse croissante", "Pleine Lune",
                   "Gibbeuse décroissante", "Dernier quartier", "Dernier croissant"},
    .transit = "Passage au méridien",
    .illuminated = "Éclairée",
    .illuminatedValue = "{}\u00a0%, {}",
    .waxing = "croissante",
    .waning = "décroissante",
    .elongation = "Élongation",
    .age = "Âge",
    .ageValue = "{} jours",
    .nextNewMoon = "Nouvelle Lune",
    .nextNewMoonValue = "dans {} jours",
    .litRight = "éclairée à droite",
    .litLeft = "éclairée à gauche",
    .notLit = "non éclairée",
    .fullyLit = "entièrement éclairée",
    .gregorian = "Grégorien",
    .julian = "Julien",
    .rumi = "Rumi",
    .season = "Saison",
    .summerSeason = "jour {} du semestre d’été, depuis le 6 mai",
    .winterSeason = "jour {} du semestre d’hiver, depuis le 8 novembre",
    .coordinates = "Coordonnées",
    .elevation = "Altitude",
    .population = "Population",
};

constexpr Texts german{
    .weekdays = {"Sonntag", "Montag", "Dienstag", "Mittwoch", "Donnerstag", "Freitag", "Samstag"},
    .weekdaysShort = {"So", "Mo", "Di", "Mi", "Do", "Fr", "Sa"},
    .longDate = "{0}, {1}. {2} {3}",
    .date = "{1}. {2} {3}",
    .firstOfMonth = "1",
    .decimalMark = ",",
    .hoursMinutes = "{} Std. {} Min.",
    .minutes = "{} Min.",
    .in = "in {}",
    .byTable = "Hidschri, nach der Tabelle",
    .byCrescent = "Hidschri, nach der Mondsichel",
    .outsideTable = "außerhalb der Hidschri-Tabelle",
    .tomorrow = "morgen",
    .afterMidnight = "nach Mitternacht",
    .dayBefore = "am Vorabend",
    .noSummerTime = "keine Sommerzeit",
    .clocksForward = "Uhr vor am {}",
    .clocksBack = "Uhr zurück am {}",
    .fromNorth = "im Uhrzeigersinn von Nord",
    .declination = "Missweisung",
    .declinationRemark = "magnetisch, Ost +; {} ({})",
    .margin =
        "Die Zeiten enthalten einen Sicherheitszuschlag (Temkin) von {}, für {} m Höhe; ab 31 s wird zur vollen Minute "
        "aufgerundet.",
    .marginValue = "{} Min. {:02} s",
    .fallbackLatitude = "Die Sonne geht hier an diesem Tag nicht auf und unter: Die Zeiten sind die der Breite {}.",
    .fallbackImsak =
        "Die Sonne sinkt nicht 19° unter den Horizont: Die Zeit ist die des letzten Tages davor, an dem sie "
        "es tut.",
    .fallbackYatsi =
        "Die Sonne sinkt nicht 17° unter den Horizont: Die Zeit ist die des letzten Tages davor, an dem sie "
        "es tut.",
    .chosenByZone =
        "{} ist die größte Stadt der Zeitzone dieses Systems, {}. Eine andere wählen: quode city home "
        "NAME.",
    .chosenByDefault =
        "{} wird gezeigt, weil zur Zeitzone dieses Systems, {}, keine Stadt gehört. Eine wählen: quode city "
        "home NAME.",
    .clockOfNearest = "Uhr von {}, {} km entfernt",
    .zoneWarning = "{0}: Gespeichert ist die Uhr {1}, dieses System hat {2}, {3}. Die Zeiten folgen der gespeicherten.",
    .zoneWarningDay = "am {}",
    .zoneWarningDays = "an {0} Tagen vom {1} bis {2}",
    .bearing = "Qibla",
    .compassBearing = "Kompass",
    .compassRemark = "auf einem Magnetkompass",
    .distance = "Entfernung",
    .kaabaDistance = "bis zur Kaaba",
    .sunInQibla = "steht die Sonne in dieser Richtung",
    .noSunInQibla = "die Sonne steht an diesem Tag nicht dort",
    .kaabaMeridian =
        "Dieser Ort liegt auf dem Meridian der Kaaba. Die Formel gibt auf beiden Seiten 0°; die Kaaba liegt genau im "
        "{}.",
    .dueNorth = "Norden",
    .dueSouth = "Süden",
    .sunrise = "Sonnenaufgang",
    .sunset = "Sonnenuntergang",
    .moonrise = "Mondaufgang",
    .moonset = "Monduntergang",
    .moonAtSunset = "Mond bei Sonnenuntergang",
    .moonPhases = {"Neumond", "Zunehmende Sichel", "Erstes Viertel", "Zunehmender Mond", "Vollmond", "Abnehmender Mond",
                   "Letztes Viertel", "Abnehmende Sichel"},
    .transit = "Höchststand",
    .illuminated = "Beleuchtet",
    .illuminatedValue = "{} %, {}",
    .waxing = "zunehmend",
    .waning = "abnehmend",
    .elongation = "Elongation",
    .age = "Alter",
    .ageValue = "{} Tage",
    .nextNewMoon = "Neumond",
    .nextNewMoonValue = "in {} Tagen",
    .litRight = "rechts beleuchtet",
    .litLeft = "links beleuchtet",
    .notLit = "unbeleuchtet",
    .fullyLit = "ganz beleuchtet",
    .gregorian = "Gregorianisch",
    .julian = "Julianisch",
    .rumi = "Rumi",
    .season = "Jahreszeit",
    .summerSeason = "Tag {} des Sommerhalbjahres, ab 6. Mai",
    .winterSeason = "Tag {} des Winterhalbjahres, ab 8. November",
    .coordinates = "Koordinaten",
    .elevation = "Höhe",
    .population = "Einwohner",
};

}  // namespace

const Texts& textsOf(int languageId) {
    return inLanguage(languageId, turkish, english, french, german);
}

std::string decimal(const Texts& texts, double value, int places, bool withSign) {
    std::string text = withSign ? fmt::format("{:+.{}f}", value, places) : fmt::format("{:.{}f}", value, places);
    if (places > 0) text.replace(text.find('.'), 1, texts.decimalMark);
    return text;
}

std::string_view rumiMonth(int month) {
    constexpr std::array<std::string_view, 12> months{"Mart",        "Nisan",       "Mayıs",      "Haziran",
                                                      "Temmuz",      "Ağustos",     "Eylül",      "Teşrinievvel",
                                                      "Teşrinisani", "Kânunuevvel", "Kânunusani", "Şubat"};
    if (month < 1 || month > 12) return "";
    return months[static_cast<std::size_t>(month) - 1];
}

}  // namespace quode::app

/* SPDX-FileCopyrightText: the Quode authors
 * SPDX-License-Identifier: MIT
 *
 * Quode as a library, for C and for everything that calls C.
 *
 * Nothing is kept between calls but what the caller holds, and every function may be called from any thread. Texts are
 * UTF-8. Angles are degrees, north and east positive. Instants are Unix time: seconds since 1970-01-01 00:00 UTC.
 * Dates are Gregorian, from 1582-10-15 to 9999-12-31. A function that can fail takes a `quode_error *`, which may be
 * NULL; it is written only on failure. What the library allocates is freed by the function that its type names.
 *
 * The library reads the data that are installed with it and, where these are newer, the zone data of the machine. It
 * does not read or write the files of a user, so home city, alarms and chosen methods play no part here.
 *
 * Fixed names: everything in this header. Programs are compiled and linked against names, values, fields and their order;
 * new ones may be added, none is changed or removed.
 *
 *     quode_error error;
 *     quode_day day;
 *     quode_place* place = quode_place_find(NULL, "Istanbul", &error);
 *     if (place == NULL || quode_day_of(place, (quode_date){2026, 3, 21}, &day, &error) != QUODE_OK) {
 *         fprintf(stderr, "%s\n", error.message);
 *     } else {
 *         char clock[6];
 *         quode_clock_text(day.times[QUODE_FAJR].minute, clock);
 *         printf("fajr %s\n", clock);
 *     }
 *     quode_place_free(place);
 */
#ifndef QUODE_QUODE_C_H
#define QUODE_QUODE_C_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* --- failures ---------------------------------------------------------------------------------------------------- */

enum {
    QUODE_OK = 0,
    QUODE_BAD_ARGUMENT = 1, /* a number out of range, an unknown method or zone, a date that does not exist */
    QUODE_NOT_FOUND = 2,    /* no place or no time of this kind */
    QUODE_NO_DATA = 3,      /* the installed data are missing, damaged or of another edition */
    QUODE_FAILED = 4        /* no memory, or a failure of the system */
};
typedef int32_t quode_status;

/* What failed: why. What to do. */
typedef struct quode_error {
    quode_status status;
    char message[508];
} quode_error;

/* The version of the library that runs, such as "0.1.0". */
const char* quode_version(void);

/* --- data -------------------------------------------------------------------------------------------------------- */

/* The database of places and zones, opened. One object serves many threads; they wait for each other. Wherever a
 * function takes one, NULL stands for a database that is opened for this call. */
typedef struct quode_data quode_data;

/* Opens the database.
 * @param bundle  the folder Quode.bundle; NULL: that of $QUODE_BUNDLE_DIR, else the one installed with this library
 * @return NULL on failure */
quode_data* quode_data_open(const char* bundle, quode_error* error);
void quode_data_close(quode_data* data);

/* The edition of the data, such as "places 2026-09, zones 2026f". */
const char* quode_data_edition(const quode_data* data);

/* --- places ------------------------------------------------------------------------------------------------------ */

/* A place with its clock and the method of its times. It never changes and may be used by many threads at once, also
 * after the database is closed. */
typedef struct quode_place quode_place;
void quode_place_free(quode_place* place);

/* The most populous place with a name. Case and diacritics do not matter.
 * @param name  a country or region may follow after a comma: "London, CA"
 * @return NULL when no place has the name; the message then proposes others */
quode_place* quode_place_find(quode_data* data, const char* name, quode_error* error);

/* Places by the beginning of a name, the best first; it forgives a typing mistake.
 * @param places    receives at most `capacity` places, each to be freed
 * @param capacity  the size of `places`
 * @return the number of places written; 0 also on failure */
size_t quode_place_search(quode_data* data, const char* text, quode_place** places, size_t capacity,
                          quode_error* error);

/* The place with a number of the database.
 * @param id  as quode_place_id gives it
 * @return NULL on failure */
quode_place* quode_place_by_id(quode_data* data, int32_t id, quode_error* error);

/* The place of the database nearest to a point.
 * @return NULL on failure */
quode_place* quode_place_nearest(quode_data* data, double latitude, double longitude, quode_error* error);

/* A point as a place.
 * @param zone  an IANA name such as "Europe/London", or "UTC"; NULL: the zone of the nearest place
 * @return NULL on failure */
quode_place* quode_place_at(quode_data* data, double latitude, double longitude, const char* zone, quode_error* error);

/* The same place with another method.
 * @param method  such as "diyanet" or "mwl asr=2 fajr-angle=18.5 adjust=2,0,0,0,0,-1"
 * @return a new place, to be freed too; NULL on failure */
quode_place* quode_place_with_method(const quode_place* place, const char* method, quode_error* error);

/* The facts of a place. Texts are valid as long as the place; "" where nothing is known. */
int32_t quode_place_id(const quode_place* place); /* 0 for a point */
const char* quode_place_name(const quode_place* place);
const char* quode_place_region(const quode_place* place);
const char* quode_place_country(const quode_place* place); /* ISO 3166-1 alpha-2 */
const char* quode_place_zone(const quode_place* place);    /* IANA name */
const char* quode_place_method(const quode_place* place);  /* as quode_place_with_method takes it */
double quode_place_latitude(const quode_place* place);
double quode_place_longitude(const quode_place* place);
int64_t quode_place_population(const quode_place* place); /* 0 when not known */

/* --- methods ----------------------------------------------------------------------------------------------------- */

size_t quode_method_count(void);
const char* quode_method_key(size_t index);  /* "quode" is the first and the default; NULL beyond the last */
const char* quode_method_name(size_t index); /* "Diyanet, Türkiye"; NULL beyond the last */

/* --- days -------------------------------------------------------------------------------------------------------- */

typedef struct quode_date {
    int32_t year, month, day;
} quode_date;

/* The times of a day: the index in quode_day.times. */
enum {
    QUODE_FAJR = 0,
    QUODE_SUNRISE = 1,
    QUODE_DHUHR = 2,
    QUODE_ASR = 3,
    QUODE_MAGHRIB = 4,
    QUODE_ISHA = 5,
    QUODE_ISHRAQ = 6,     /* forenoon */
    QUODE_ASR_HANAFI = 7, /* the shadow has grown by two lengths */
    QUODE_ISFIRAR = 8,    /* the yellowing of the Sun */
    QUODE_TIME_COUNT = 9
};

/* Where a time comes from. */
enum {
    QUODE_BY_RULE = 0,           /* the rule of the method */
    QUODE_BY_HIGH_LATITUDE = 1,  /* the method's rule for high latitudes */
    QUODE_BY_OTHER_LATITUDE = 2, /* computed for a lower latitude: the Sun does not both rise and set here */
    QUODE_BY_EARLIER_DAY = 3,    /* of the nearest earlier day on which the Sun sinks low enough */
    QUODE_BY_OWN_RULE = 4        /* Quode's rule, for the method does not define this time */
};

/* Why there is no such time. */
enum {
    QUODE_PRESENT = 0,
    QUODE_SUN_NOT_LOW_ENOUGH = 1,  /* it does not sink to the depth of dawn or night */
    QUODE_SUN_NOT_HIGH_ENOUGH = 2, /* it does not climb to the height that belongs to the time */
    QUODE_SUN_NOT_AT_HORIZON = 3   /* it does not rise and set */
};

#define QUODE_NO_INSTANT INT64_MIN
#define QUODE_NO_MINUTE INT32_MIN

typedef struct quode_time {
    int64_t instant;  /* of the shown minute; QUODE_NO_INSTANT when there is no such time */
    double hours;     /* of the place's clock after 0 h of the day, before rounding; NaN when there is none */
    int32_t minute;   /* as shown, after 0 h of the day; below 0 and from 1440 on of a neighbouring day */
    int32_t origin;   /* QUODE_BY_... */
    int32_t absence;  /* QUODE_PRESENT, or why there is none */
    int32_t adjusted; /* minutes that the method's "adjust" added */
} quode_time;

typedef struct quode_day {
    quode_date date;
    int32_t utc_offset;     /* seconds east of Greenwich, summer time included */
    int32_t is_summer_time; /* 1 or 0 */
    int32_t reserved;       /* 0 */
    quode_time times[QUODE_TIME_COUNT];
} quode_day;

/* The times of a day.
 * @param day  receives them; unchanged on failure
 * @return QUODE_OK, or what failed */
quode_status quode_day_of(const quode_place* place, quode_date date, quode_day* day, quode_error* error);

/* The times of days in a row. What neighbouring days share is computed once; each result is, bit for bit, that of
 * quode_day_of.
 * @param count  the number of days, and the size of `days`
 * @return QUODE_OK, or what failed */
quode_status quode_days_of(const quode_place* place, quode_date first, size_t count, quode_day* days,
                           quode_error* error);

/* A coming prayer. */
typedef struct quode_next {
    int32_t prayer; /* QUODE_FAJR to QUODE_ISHA */
    int32_t minute; /* as in quode_time */
    quode_date date;
    int32_t reserved; /* 0 */
    int64_t instant;
} quode_next;

/* The first of the six main times after an instant.
 * @return QUODE_OK, or what failed: QUODE_NOT_FOUND when yesterday, today and tomorrow have none */
quode_status quode_next_of(const quode_place* place, int64_t instant, quode_next* next, quode_error* error);

/* The date on the place's clock at an instant.
 * @return all fields 0 for an instant that is out of range */
quode_date quode_date_at(const quode_place* place, int64_t instant);

/* The name of a time in Quode's JSON.
 * @param prayer  QUODE_FAJR to QUODE_ISFIRAR
 * @return "fajr", "asr_hanafi"; NULL for another number */
const char* quode_time_key(int32_t prayer);

/* Why there is no such time, as a sentence.
 * @param absence  QUODE_SUN_...
 * @return "" for QUODE_PRESENT */
const char* quode_absence_text(int32_t absence);

/* The clock text of a minute.
 * @param minute  after 0 h, of whatever day
 * @param text    receives "05:43", or "--:--" for QUODE_NO_MINUTE */
void quode_clock_text(int32_t minute, char text[6]);

/* --- qibla ------------------------------------------------------------------------------------------------------- */

typedef struct quode_qibla {
    double bearing;     /* clockwise from true north */
    double distance_km; /* along the great circle */
} quode_qibla;

/* The direction and distance of the Kaaba from a point.
 * @return QUODE_OK, or what failed */
quode_status quode_qibla_at(double latitude, double longitude, quode_qibla* qibla, quode_error* error);

/* --- Hijri dates ------------------------------------------------------------------------------------------------- */

enum {
    QUODE_HIJRI_TABLE = 0,      /* the table of Quode, 1429 to 1470 AH */
    QUODE_HIJRI_UMM_AL_QURA = 1 /* the calendar of Saudi Arabia, 1300 to 1600 AH */
};

/* The Hijri date of a day, and the day of a Hijri date.
 * @param calendar  QUODE_HIJRI_...
 * @return 1, or 0 where the calendar has no such date */
int32_t quode_hijri_of(quode_date date, int32_t calendar, quode_date* hijri);
int32_t quode_date_of_hijri(quode_date hijri, int32_t calendar, quode_date* date);

#ifdef __cplusplus
}
#endif

#endif

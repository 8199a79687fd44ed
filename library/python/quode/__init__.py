# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""Quode as a library: prayer times, qibla and Hijri dates, offline.

    >>> import datetime, quode
    >>> day = quode.day_for(quode.find_place("London"), datetime.date(2026, 11, 21))
    >>> print(day.asr)

Angles are degrees, north and east positive. Instants are aware `datetime` objects in UTC. Objects may be shared between
threads. With NumPy installed, `days_array` gives many days as one array. The manual is docs/library.md.
"""

from __future__ import annotations

import dataclasses
import datetime
import enum
from typing import TYPE_CHECKING, Any, NamedTuple

from . import _native
from ._native import byref, c_void_p
from ._native import library as _library

if TYPE_CHECKING:
    import numpy
    import numpy.typing

__version__: str = _library.quode_version().decode()

_EPOCH = datetime.datetime(1970, 1, 1, tzinfo=datetime.timezone.utc)


class Error(Exception):
    """A wrong argument, an unknown place or unusable data. `status` is that of quode_c.h."""

    def __init__(self, status: int, message: str) -> None:
        super().__init__(message)
        self.status = status


class Prayer(enum.IntEnum):
    """The times of a day, in the order of `Day.times`."""

    FAJR = 0
    SUNRISE = 1
    DHUHR = 2
    ASR = 3
    MAGHRIB = 4
    ISHA = 5
    ISHRAQ = 6
    ASR_HANAFI = 7
    ISFIRAR = 8


class Origin(enum.IntEnum):
    """Where a time comes from."""

    RULE = 0
    HIGH_LATITUDE = 1
    OTHER_LATITUDE = 2
    EARLIER_DAY = 3
    OWN_RULE = 4


class Absence(enum.IntEnum):
    """Why there is no such time."""

    PRESENT = 0
    SUN_NOT_LOW_ENOUGH = 1
    SUN_NOT_HIGH_ENOUGH = 2
    SUN_NOT_AT_HORIZON = 3

    @property
    def text(self) -> str:
        return _text(_library.quode_absence_text(self))


class HijriCalendar(enum.IntEnum):
    TABLE = 0
    UMM_AL_QURA = 1


class HijriDate(NamedTuple):
    year: int
    month: int
    day: int


class Qibla(NamedTuple):
    bearing: float
    """degrees clockwise from true north"""
    distance_km: float


def _text(value: bytes) -> str:
    return value.decode()


def _bytes(text: str) -> bytes:
    """For the library, whose texts end at a NUL."""
    if "\0" in text:
        raise ValueError("a text must not contain a NUL character")
    return text.encode()


def _clock(minute: int) -> str:
    return f"{minute // 60 % 24:02d}:{minute % 60:02d}"


@dataclasses.dataclass(frozen=True)
class PrayerTime:
    """One time of a day. `instant`, `minute` and `hours` are None when there is no such time."""

    prayer: Prayer
    instant: datetime.datetime | None
    minute: int | None
    """as shown, after 0 h of the day; 1440 and more belong to the next day"""
    hours: float | None
    origin: Origin
    absence: Absence
    adjusted: int

    def __bool__(self) -> bool:
        return self.instant is not None

    def __str__(self) -> str:
        return "--:--" if self.minute is None else _clock(self.minute)


@dataclasses.dataclass(frozen=True)
class Day:
    """The times of a day."""

    date: datetime.date
    utc_offset: datetime.timedelta
    is_summer_time: bool
    times: tuple[PrayerTime, ...]

    def __getitem__(self, prayer: Prayer) -> PrayerTime:
        return self.times[prayer]

    def __getattr__(self, name: str) -> PrayerTime:
        """`day.asr` is `day[Prayer.ASR]`."""
        try:
            return self.times[Prayer[name.upper()]]
        except KeyError:
            raise AttributeError(f"A day has no {name!r}") from None


@dataclasses.dataclass(frozen=True)
class NextPrayer:
    prayer: Prayer
    instant: datetime.datetime
    minute: int
    date: datetime.date

    def __str__(self) -> str:
        return _clock(self.minute)


def _fail(error: _native.ErrorRecord) -> None:
    raise Error(error.status, error.message.decode())


def _record(date: datetime.date | HijriDate) -> _native.DateRecord:
    return _native.DateRecord(date.year, date.month, date.day)


def _date(record: _native.DateRecord) -> datetime.date:
    return datetime.date(record.year, record.month, record.day)


def _instant(seconds: int) -> datetime.datetime:
    return _EPOCH + datetime.timedelta(seconds=seconds)


def _seconds(instant: datetime.datetime | None) -> int:
    if instant is None:
        instant = datetime.datetime.now(datetime.timezone.utc)
    if instant.tzinfo is None:
        raise ValueError("The instant has no time zone. Give one, such as datetime.timezone.utc.")
    return (instant - _EPOCH) // datetime.timedelta(seconds=1)


class Place:
    """A place with its clock and the method of its times. `find_place` and its neighbours make them."""

    def __init__(self, handle: int | None, error: _native.ErrorRecord) -> None:
        self._handle = handle
        if not handle:
            _fail(error)

    def __del__(self) -> None:
        if self._handle:
            _library.quode_place_free(self._handle)
            self._handle = None

    @property
    def id(self) -> int:
        """The number in the database; 0 for a point."""
        return int(_library.quode_place_id(self._handle))

    @property
    def name(self) -> str:
        return _text(_library.quode_place_name(self._handle))

    @property
    def region(self) -> str:
        return _text(_library.quode_place_region(self._handle))

    @property
    def country(self) -> str:
        """ISO 3166-1 alpha-2."""
        return _text(_library.quode_place_country(self._handle))

    @property
    def zone(self) -> str:
        """The IANA name of the time zone."""
        return _text(_library.quode_place_zone(self._handle))

    @property
    def method(self) -> str:
        return _text(_library.quode_place_method(self._handle))

    @property
    def latitude(self) -> float:
        return float(_library.quode_place_latitude(self._handle))

    @property
    def longitude(self) -> float:
        return float(_library.quode_place_longitude(self._handle))

    @property
    def population(self) -> int:
        """0 when it is not known."""
        return int(_library.quode_place_population(self._handle))

    def with_method(self, method: str) -> Place:
        """The same place with another method, such as "diyanet" or "mwl asr=2"."""
        error = _native.ErrorRecord()
        return Place(_library.quode_place_with_method(self._handle, _bytes(method), byref(error)), error)

    def __repr__(self) -> str:
        return f"<quode.Place {self.name!r} {self.latitude:.4f} {self.longitude:.4f} {self.zone} {self.method!r}>"


class Database:
    """The database of places and zones, for programs that look up many. `bundle`: another folder Quode.bundle."""

    def __init__(self, bundle: str | None = None) -> None:
        error = _native.ErrorRecord()
        self._handle = _library.quode_data_open(None if bundle is None else _bytes(bundle), byref(error))
        if not self._handle:
            _fail(error)

    def __del__(self) -> None:
        if self._handle:
            _library.quode_data_close(self._handle)
            self._handle = None

    @property
    def edition(self) -> str:
        return _text(_library.quode_data_edition(self._handle))

    def find(self, name: str) -> Place:
        """The most populous place with a name; "London, CA" chooses country or region."""
        error = _native.ErrorRecord()
        return Place(_library.quode_place_find(self._handle, _bytes(name), byref(error)), error)

    def search(self, text: str, limit: int = 10) -> list[Place]:
        """Places by the beginning of a name, the best first; forgives a typing mistake."""
        error = _native.ErrorRecord()
        handles = (c_void_p * limit)()
        count = _library.quode_place_search(self._handle, _bytes(text), handles, limit, byref(error))
        if error.status != _native.OK:
            _fail(error)
        return [Place(handle, error) for handle in handles[:count]]

    def by_id(self, number: int) -> Place:
        error = _native.ErrorRecord()
        return Place(_library.quode_place_by_id(self._handle, number, byref(error)), error)

    def nearest(self, latitude: float, longitude: float) -> Place:
        """The place of the database nearest to a point."""
        error = _native.ErrorRecord()
        return Place(_library.quode_place_nearest(self._handle, latitude, longitude, byref(error)), error)

    def at(self, latitude: float, longitude: float, zone: str | None = None) -> Place:
        """A point, with the clock of an IANA zone; without one, with that of the nearest place."""
        error = _native.ErrorRecord()
        given = None if zone is None else _bytes(zone)
        return Place(_library.quode_place_at(self._handle, latitude, longitude, given, byref(error)), error)


def find_place(name: str) -> Place:
    """See `Database.find`; opens the database for the call."""
    return Database().find(name)


def search_places(text: str, limit: int = 10) -> list[Place]:
    """See `Database.search`; opens the database for the call."""
    return Database().search(text, limit)


def place_at(latitude: float, longitude: float, zone: str | None = None) -> Place:
    """See `Database.at`; opens the database for the call."""
    return Database().at(latitude, longitude, zone)


def _compute(place: Place, first: datetime.date, count: int, target: object) -> None:
    error = _native.ErrorRecord()
    if _library.quode_days_of(place._handle, _record(first), count, target, byref(error)) != _native.OK:
        _fail(error)


def _time(prayer: Prayer, record: _native.TimeRecord) -> PrayerTime:
    absence = Absence(record.absence)
    if absence is not Absence.PRESENT:
        return PrayerTime(prayer, None, None, None, Origin(record.origin), absence, record.adjusted)
    return PrayerTime(prayer, _instant(record.instant), record.minute, record.hours, Origin(record.origin), absence,
                      record.adjusted)


def _day(record: _native.DayRecord) -> Day:
    return Day(_date(record.date), datetime.timedelta(seconds=record.utc_offset), bool(record.is_summer_time),
               tuple(_time(prayer, record.times[prayer]) for prayer in Prayer))


def days_for(place: Place, first: datetime.date, count: int) -> list[Day]:
    """The times of `count` days in a row."""
    records = (_native.DayRecord * count)()
    _compute(place, first, count, records)
    return [_day(record) for record in records]


def day_for(place: Place, date: datetime.date) -> Day:
    """The times of a day."""
    return days_for(place, date, 1)[0]


def day_at(latitude: float, longitude: float, zone: str | None, date: datetime.date, method: str = "quode") -> Day:
    """The times of a day at a point; see `Database.at`."""
    return day_for(place_at(latitude, longitude, zone).with_method(method), date)


def days_array(place: Place, first: datetime.date, count: int) -> numpy.typing.NDArray[Any]:
    """The times of `count` days in a row, as a structured array; needs NumPy.

    The fields are those of `quode_day`: "date" ("year", "month", "day"), "utc_offset", "is_summer_time", and "times", nine
    for each day in the order of `Prayer`, with "instant", "hours", "minute", "origin", "absence" and "adjusted".
    Where there is no time, "hours" is NaN, and "instant" and "minute" are the lowest numbers of their types.
    """
    import numpy

    days = numpy.zeros(count, dtype=numpy.dtype(_native.DayRecord))
    _compute(place, first, count, days.ctypes.data)
    return days


def next_prayer(place: Place, instant: datetime.datetime | None = None) -> NextPrayer | None:
    """The first of the six main times after an instant, or after now; None when the days around it have none."""
    error, record = _native.ErrorRecord(), _native.NextRecord()
    status = _library.quode_next_of(place._handle, _seconds(instant), byref(record), byref(error))
    if status == _native.NOT_FOUND:
        return None
    if status != _native.OK:
        _fail(error)
    return NextPrayer(Prayer(record.prayer), _instant(record.instant), record.minute, _date(record.date))


def date_at(place: Place, instant: datetime.datetime | None = None) -> datetime.date:
    """The date on a place's clock at an instant, or now."""
    return _date(_library.quode_date_at(place._handle, _seconds(instant)))


def qibla(latitude: float, longitude: float) -> Qibla:
    error, record = _native.ErrorRecord(), _native.QiblaRecord()
    if _library.quode_qibla_at(latitude, longitude, byref(record), byref(error)) != _native.OK:
        _fail(error)
    return Qibla(record.bearing, record.distance_km)


def hijri_date(date: datetime.date, calendar: HijriCalendar = HijriCalendar.TABLE) -> HijriDate | None:
    """The Hijri date of a day; None where the calendar does not reach it."""
    record = _native.DateRecord()
    if not _library.quode_hijri_of(_record(date), calendar, byref(record)):
        return None
    return HijriDate(record.year, record.month, record.day)


def gregorian_date(hijri: HijriDate, calendar: HijriCalendar = HijriCalendar.TABLE) -> datetime.date | None:
    """The day of a Hijri date; None where the calendar has no such date."""
    record = _native.DateRecord()
    if not _library.quode_date_of_hijri(_record(hijri), calendar, byref(record)):
        return None
    return _date(record)


def methods() -> dict[str, str]:
    """The keys and names of all methods; the first is the default."""
    return {_library.quode_method_key(i).decode(): _library.quode_method_name(i).decode()
            for i in range(_library.quode_method_count())}

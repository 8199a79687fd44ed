# SPDX-FileCopyrightText: the Quode authors
# SPDX-License-Identifier: MIT
"""libquode.so by way of ctypes: the records and functions of quode_c.h that the package uses."""

from __future__ import annotations

import ctypes
import os
import pathlib
from ctypes import POINTER, Structure, byref, c_char, c_char_p, c_double, c_int32, c_int64, c_size_t, c_void_p

TIME_COUNT = 9
OK, NOT_FOUND = 0, 2
LIBRARY = "libquode.so.0"


class ErrorRecord(Structure):
    _fields_ = [("status", c_int32), ("message", c_char * 508)]


class DateRecord(Structure):
    _fields_ = [("year", c_int32), ("month", c_int32), ("day", c_int32)]


class TimeRecord(Structure):
    _fields_ = [("instant", c_int64), ("hours", c_double), ("minute", c_int32), ("origin", c_int32),
                ("absence", c_int32), ("adjusted", c_int32)]


class DayRecord(Structure):
    _fields_ = [("date", DateRecord), ("utc_offset", c_int32), ("is_summer_time", c_int32), ("reserved", c_int32),
                ("times", TimeRecord * TIME_COUNT)]


class NextRecord(Structure):
    _fields_ = [("prayer", c_int32), ("minute", c_int32), ("date", DateRecord), ("reserved", c_int32),
                ("instant", c_int64)]


class QiblaRecord(Structure):
    _fields_ = [("bearing", c_double), ("distance_km", c_double)]


_error = POINTER(ErrorRecord)
_functions: dict[str, tuple[object, list[object]]] = {
    "quode_version": (c_char_p, []),
    "quode_data_open": (c_void_p, [c_char_p, _error]),
    "quode_data_close": (None, [c_void_p]),
    "quode_data_edition": (c_char_p, [c_void_p]),
    "quode_place_find": (c_void_p, [c_void_p, c_char_p, _error]),
    "quode_place_search": (c_size_t, [c_void_p, c_char_p, POINTER(c_void_p), c_size_t, _error]),
    "quode_place_by_id": (c_void_p, [c_void_p, c_int32, _error]),
    "quode_place_nearest": (c_void_p, [c_void_p, c_double, c_double, _error]),
    "quode_place_at": (c_void_p, [c_void_p, c_double, c_double, c_char_p, _error]),
    "quode_place_with_method": (c_void_p, [c_void_p, c_char_p, _error]),
    "quode_place_free": (None, [c_void_p]),
    "quode_place_id": (c_int32, [c_void_p]),
    "quode_place_name": (c_char_p, [c_void_p]),
    "quode_place_region": (c_char_p, [c_void_p]),
    "quode_place_country": (c_char_p, [c_void_p]),
    "quode_place_zone": (c_char_p, [c_void_p]),
    "quode_place_method": (c_char_p, [c_void_p]),
    "quode_place_latitude": (c_double, [c_void_p]),
    "quode_place_longitude": (c_double, [c_void_p]),
    "quode_place_population": (c_int64, [c_void_p]),
    "quode_method_count": (c_size_t, []),
    "quode_method_key": (c_char_p, [c_size_t]),
    "quode_method_name": (c_char_p, [c_size_t]),
    "quode_days_of": (c_int32, [c_void_p, DateRecord, c_size_t, c_void_p, _error]),
    "quode_next_of": (c_int32, [c_void_p, c_int64, POINTER(NextRecord), _error]),
    "quode_date_at": (DateRecord, [c_void_p, c_int64]),
    "quode_absence_text": (c_char_p, [c_int32]),
    "quode_qibla_at": (c_int32, [c_double, c_double, POINTER(QiblaRecord), _error]),
    "quode_hijri_of": (c_int32, [DateRecord, c_int32, POINTER(DateRecord)]),
    "quode_date_of_hijri": (c_int32, [DateRecord, c_int32, POINTER(DateRecord)]),
}


def _library_file() -> str:
    """The library of the installation to which this file belongs; else the one that the system finds."""
    chosen = os.environ.get("QUODE_LIBRARY")
    if chosen:
        return chosen
    for folder in pathlib.Path(__file__).resolve().parents:
        if not folder.name.startswith("lib"):
            continue
        for found in (folder / LIBRARY, *sorted(folder.glob("*-linux-*/" + LIBRARY))):
            if found.exists():
                return str(found)
    return LIBRARY


def _load() -> ctypes.CDLL:
    file = _library_file()
    try:
        library = ctypes.CDLL(file)
    except OSError as error:
        raise ImportError(f"{file} cannot be loaded: {error}. Install Quode's library, or name its file in "
                          "QUODE_LIBRARY.") from error
    for name, (result, arguments) in _functions.items():
        function = getattr(library, name)
        function.restype = result
        function.argtypes = arguments
    return library


library = _load()

__all__ = ["DateRecord", "DayRecord", "ErrorRecord", "NextRecord", "NOT_FOUND", "OK", "QiblaRecord", "TIME_COUNT",
           "TimeRecord", "byref", "c_void_p", "library"]

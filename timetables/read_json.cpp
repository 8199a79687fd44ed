// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <nlohmann/json.hpp>

#include "texts/translation.h"
#include "timetables/RawTable.h"
#include "timetables/columns.h"

namespace quode::timetables {
namespace {

using nlohmann::json;
using Entry = std::vector<std::pair<std::string, std::string>>;

constexpr int deepest = 6;

/// Texts of an entry, those of objects within it included: {"prayers": {"fajr": {"time": "05:12"}}}.
void collect(const json& value, const std::string& name, Entry& entry, int depth) {
    if (depth > deepest) return;
    if (value.is_string()) {
        entry.emplace_back(name, value.get<std::string>());
    } else if (value.is_number_integer()) {
        entry.emplace_back(name, std::to_string(value.get<long long>()));
    } else if (value.is_object()) {
        const auto time = value.find("time");
        if (time != value.end() && columnOf(name)) {
            if (time->is_string()) entry.emplace_back(name, time->get<std::string>());
            return;
        }
        for (const auto& [key, inner] : value.items()) collect(inner, key, entry, depth + 1);
    }
}

bool isTimetable(const Entry& entry) {
    return std::ranges::count_if(entry, [](const auto& field) { return columnOf(field.first).has_value(); }) >= 3;
}

/// Entries of an array, or of an object whose keys are dates.
void findEntries(const json& value, std::vector<Entry>& entries, int depth) {
    if (depth > deepest) return;
    if (value.is_array()) {
        for (const json& item : value) {
            Entry entry;
            if (item.is_object()) collect(item, "", entry, 0);
            if (isTimetable(entry)) entries.push_back(std::move(entry));
        }
        if (entries.empty()) {
            for (const json& item : value) findEntries(item, entries, depth + 1);
        }
    } else if (value.is_object()) {
        for (const auto& [key, inner] : value.items()) {
            Entry entry{{"date", key}};
            const bool keyIsDate = !key.empty() && key.front() >= '0' && key.front() <= '9';
            if (keyIsDate && inner.is_object()) collect(inner, "", entry, 0);
            if (isTimetable(entry)) {
                entries.push_back(std::move(entry));
            } else {
                findEntries(inner, entries, depth + 1);
            }
        }
    }
}

RawTable tableOf(const std::vector<Entry>& entries) {
    RawTable table;
    table.format = "JSON";
    for (const Entry& entry : entries) {
        for (const auto& [name, text] : entry) {
            if (std::ranges::find(table.headings, name) == table.headings.end()) table.headings.push_back(name);
        }
    }
    int number = 0;
    for (const Entry& entry : entries) {
        RawRow row{++number, std::vector<std::string>(table.headings.size())};
        for (const auto& [name, text] : entry) {
            const auto at = std::ranges::find(table.headings, name) - table.headings.begin();
            row.cells[static_cast<std::size_t>(at)] = text;
        }
        table.rows.push_back(std::move(row));
    }
    return table;
}

}  // namespace

RawTable readJson(std::string_view content) {
    json document;
    try {
        document = json::parse(content);
    } catch (const json::exception& error) {
        throw ImportError(_("The file is damaged JSON: {}.", std::string(error.what())));
    }
    std::vector<Entry> entries;
    findEntries(document, entries, 0);
    if (entries.empty()) {
        throw ImportError(
            _("The JSON holds no days. Each needs a date and prayers, such as \"date\": \"2026-01-31\", "
              "\"fajr\": \"05:12\"."));
    }
    return tableOf(entries);
}

}  // namespace quode::timetables

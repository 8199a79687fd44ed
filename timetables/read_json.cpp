// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include <algorithm>
#include <array>
#include <nlohmann/json.hpp>

#include "texts/translation.h"
#include "timetables/RawTable.h"
#include "timetables/cells.h"
#include "timetables/columns.h"

namespace quode::timetables {
namespace {

/// The fields of an object in their order; a key that is there twice keeps both values.
template <typename Key, typename Value, typename Less, typename Allocator>
struct AllFields : nlohmann::ordered_map<Key, Value, Less, Allocator> {
    using nlohmann::ordered_map<Key, Value, Less, Allocator>::ordered_map;
    Value& operator[](const Key& key) { return this->emplace_back(key, Value{}).second; }
};

using Json = nlohmann::basic_json<AllFields>;

constexpr int deepest = 6;

struct Field {
    std::string heading;
    std::optional<Column> column;
    std::string text;
    bool isGregorian = false;  ///< its keys say so
};

struct Entry {
    std::vector<Field> fields;
    std::string problem;

    bool has(Column column) const { return std::ranges::find(fields, column, &Field::column) != fields.end(); }
};

/// What a value is by the keys that lead to it: {"iqama": {"fajr": "05:30"}} holds the iqama of Fajr.
Field fieldAt(const std::vector<std::string>& path) {
    Field field;
    std::string all;
    for (auto key = path.rbegin(); key != path.rend(); ++key) {
        all = all.empty() ? *key : *key + " " + all;
        if (field.column) continue;
        field.column = columnOf(all);
        field.heading = all;
    }
    const bool isPrayer = field.column && *field.column <= Column::isha;
    if (isPrayer && namesCongregation(all)) {
        field.column = columnOf(field.heading + " iqama");
        field.heading += " iqama";
    }
    field.isGregorian = plainText(all).find("gregorian") != std::string::npos;
    if (namesHijri(all) || !field.column) {
        field.column.reset();
        field.heading = all;
    }
    return field;
}

/// Whether two texts hold the same numbers, as "2026-03-01" and "1 March 2026" do.
bool isSameDate(const std::string& a, const std::string& b) {
    const auto first = writtenDateOf(a), second = writtenDateOf(b);
    if (!first || !second) return false;
    std::array<int, 3> numbers = {first->first, first->second, first->third};
    std::array<int, 3> others = {second->first, second->second, second->third};
    std::ranges::sort(numbers);
    std::ranges::sort(others);
    return numbers == others;
}

/// Adds a field. A second value of a column makes the entry useless, unless both are the same.
void put(Entry& entry, Field field) {
    const auto known = field.column ? std::ranges::find(entry.fields, field.column, &Field::column)
                                    : std::ranges::find(entry.fields, field.heading, &Field::heading);
    if (known == entry.fields.end()) {
        entry.fields.push_back(std::move(field));
        return;
    }
    const bool isPartOfDate = field.column && *field.column > Column::date;
    if (!field.column || isPartOfDate || known->text == field.text) return;
    if (field.column == Column::date) {
        if (isSameDate(known->text, field.text) || (known->isGregorian && !field.isGregorian)) return;
        if (field.isGregorian && !known->isGregorian) {
            *known = std::move(field);
            return;
        }
    }
    entry.problem = _("{} is there twice, as \"{}\" and as \"{}\"", nameOf(*field.column), known->text, field.text);
}

/// A value as text; what is no text, such as a list, is no time either and named as such.
std::string textOf(const Json& value) {
    constexpr std::size_t longest = 40;
    if (value.is_null()) return "";
    if (value.is_string()) return value.get<std::string>();
    return value.dump(-1, ' ', true, Json::error_handler_t::replace).substr(0, longest);
}

/// The values of an entry, those of objects within it included: {"prayers": {"fajr": {"time": "05:12"}}}.
void collect(const Json& value, std::vector<std::string>& path, Entry& entry) {
    if (path.size() > deepest) return;
    if (!value.is_object()) {
        Field field = fieldAt(path);
        const bool isTime = field.column && *field.column < Column::date;
        if (value.is_array() && !isTime) return;
        field.text = textOf(value);
        put(entry, std::move(field));
        return;
    }
    for (const auto& [key, inner] : value.items()) {
        path.push_back(key);
        collect(inner, path, entry);
        path.pop_back();
    }
}

Entry entryOf(const Json& value) {
    Entry entry;
    std::vector<std::string> path;
    if (value.is_object()) collect(value, path, entry);
    return entry;
}

/// The entry of a key that is a date.
Entry entryOf(const std::string& key, const Json& value) {
    Entry entry = entryOf(value);
    if (!entry.has(Column::date) || writtenDateOf(key)) put(entry, {"date", Column::date, key});
    return entry;
}

bool isDay(const Entry& entry) {
    const bool hasDate = entry.has(Column::date) || (entry.has(Column::day) && entry.has(Column::month));
    const bool hasTime = std::ranges::any_of(
        entry.fields, [](const Field& field) { return field.column && *field.column < Column::date; });
    constexpr int fewestColumns = 3;
    return (hasDate && hasTime) || std::ranges::count_if(entry.fields, [](const Field& field) {
                                       return field.column.has_value();
                                   }) >= fewestColumns;
}

void findEntries(const Json& value, std::vector<Entry>& entries, int depth);

/// Beside a day every item is one, also a damaged one.
void findInArray(const Json& array, std::vector<Entry>& entries, int depth) {
    std::vector<Entry> items;
    for (const Json& item : array) items.push_back(entryOf(item));
    if (std::ranges::any_of(items, isDay)) {
        std::ranges::move(items, std::back_inserter(entries));
    } else {
        for (const Json& item : array) findEntries(item, entries, depth + 1);
    }
}

bool mayBeDate(const std::string& key) {
    return !key.empty() && key.front() >= '0' && key.front() <= '9';
}

void findInObject(const Json& object, std::vector<Entry>& entries, int depth) {
    bool hasDays = false;
    for (const auto& [key, inner] : object.items()) {
        hasDays = hasDays || (mayBeDate(key) && inner.is_object() && isDay(entryOf(key, inner)));
    }
    for (const auto& [key, inner] : object.items()) {
        if (hasDays && mayBeDate(key)) {
            entries.push_back(entryOf(key, inner));
        } else {
            findEntries(inner, entries, depth + 1);
        }
    }
}

/// Entries of an array, or of an object whose keys are dates.
void findEntries(const Json& value, std::vector<Entry>& entries, int depth) {
    if (depth > deepest) return;
    if (value.is_array()) findInArray(value, entries, depth);
    if (value.is_object()) findInObject(value, entries, depth);
}

/// Where the values of a field stand: those of a column stand together, whatever their keys are.
std::size_t placeOf(const Field& field, const std::vector<Field>& heads) {
    const auto found = field.column ? std::ranges::find(heads, field.column, &Field::column)
                                    : std::ranges::find(heads, field.heading, &Field::heading);
    return static_cast<std::size_t>(found - heads.begin());
}

RawTable tableOf(const std::vector<Entry>& entries) {
    RawTable table;
    table.format = "JSON";
    table.unit = RowUnit::entry;
    std::vector<Field> heads;
    for (const Entry& entry : entries) {
        for (const Field& field : entry.fields) {
            if (placeOf(field, heads) == heads.size()) heads.push_back(field);
        }
    }
    for (const Field& head : heads) table.headings.push_back(head.heading);
    int number = 0;
    for (const Entry& entry : entries) {
        RawRow row{++number, std::vector<std::string>(heads.size())};
        for (const Field& field : entry.fields) row.cells[placeOf(field, heads)] = field.text;
        if (entry.problem.empty()) {
            table.rows.push_back(std::move(row));
        } else {
            table.problems.push_back({number, entry.problem});
        }
    }
    return table;
}

}  // namespace

RawTable readJson(std::string_view content) {
    Json document;
    try {
        document = Json::parse(content);
    } catch (const Json::exception& error) {
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

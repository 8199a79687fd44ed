// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "common/LanguagePack.h"

#include <plist/plist.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <memory>
#include <stdexcept>

#include "common/printable.h"
#include "common/utf8.h"
#include "texts/translation.h"

namespace quode {
namespace {

struct FreePlist {
    void operator()(void* node) const { plist_free(node); }
};
using Plist = std::unique_ptr<void, FreePlist>;

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Owned = std::unique_ptr<T, FreeMemory>;

std::string checkedText(std::string_view text) {
    if (!isUtf8(text)) throw std::runtime_error(_("a text is not UTF-8"));
    return printable(text);
}

// Tests the value itself: the library's reader aborts the program at a damaged node without a value.
std::string stringOf(plist_t node, const std::string& key) {
    std::uint64_t length = 0;
    const char* value = plist_get_node_type(node) == PLIST_STRING ? plist_get_string_ptr(node, &length) : nullptr;
    if (value == nullptr) throw std::runtime_error(_("the value of \"{}\" is not a text", key));
    return checkedText({value, static_cast<std::size_t>(length)});
}

// Calls visit(key, node) for each entry of a dictionary.
template <typename Visit>
void forEachEntry(plist_t dictionary, Visit visit) {
    plist_dict_iter iterator = nullptr;
    plist_dict_new_iter(dictionary, &iterator);
    const Owned<void> ownedIterator(iterator);
    while (true) {
        char* key = nullptr;
        plist_t node = nullptr;
        plist_dict_next_item(dictionary, iterator, &key, &node);
        const Owned<char> ownedKey(key);
        if (!ownedKey) return;
        visit(checkedText(key), node);
    }
}

LanguagePack::Section sectionOf(plist_t node, const std::string& name) {
    if (plist_get_node_type(node) != PLIST_DICT) {
        throw std::runtime_error(_("the section \"{}\" is not a dictionary", name));
    }
    LanguagePack::Section section;
    forEachEntry(node, [&](const std::string& key, plist_t value) { section[key] = stringOf(value, key); });
    return section;
}

// By the reader of each form: the one for both takes other arguments from edition to edition of the library.
Plist parsedBytes(std::string_view bytes) {
    plist_t root = nullptr;
    const auto length = static_cast<std::uint32_t>(bytes.size());
    const auto read = plist_is_binary(bytes.data(), length) ? plist_from_bin : plist_from_xml;
    read(bytes.data(), length, &root);
    if (root == nullptr) throw std::runtime_error(_("it is not a property list, or it is damaged"));
    return Plist(root);
}

// The library's reader aborts the program at a key with a zero character, which only the binary form can contain.
// Written as XML, such a list is not well formed.
Plist withoutZeroCharacters(const Plist& binary) {
    char* xml = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(binary.get(), &xml, &length);
    const Owned<char> owned(xml);
    if (!owned) throw std::runtime_error(_("it is damaged"));
    return parsedBytes({owned.get(), length});
}

Plist parsedPlist(std::string_view bytes) {
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(byteOrderMark)) bytes.remove_prefix(byteOrderMark.size());
    if (bytes.empty()) throw std::runtime_error(_("it is empty"));
    if (bytes.size() > std::numeric_limits<std::uint32_t>::max()) throw std::runtime_error(_("it is too large"));
    Plist root = parsedBytes(bytes);
    return bytes.starts_with("bplist") ? withoutZeroCharacters(root) : std::move(root);
}

struct Language {
    std::string_view name;
    std::string_view file;
};

// Ordered by id.
constexpr std::array<Language, 4> languages{{
    {"tr", "tr.lproj/tr.plist"},
    {"en", "en.lproj/en.plist"},
    {"fr", "Languages/fr.plist"},
    {"de", "Languages/ge.plist"},
}};

const Language& languageOf(int id) {
    const bool isKnown = id >= 0 && id < static_cast<int>(languages.size());
    return languages[static_cast<std::size_t>(isKnown ? id : languageEnglish)];
}

}  // namespace

std::optional<std::string> LanguagePack::text(std::string_view section, std::string_view key) const {
    const auto texts = sections_.find(section);
    if (texts == sections_.end()) return std::nullopt;
    const auto text = texts->second.find(key);
    if (text == texts->second.end()) return std::nullopt;
    return text->second;
}

LanguagePack parseLanguagePack(std::string_view bytes) {
    const Plist root = parsedPlist(bytes);
    if (plist_get_node_type(root.get()) != PLIST_DICT)
        throw std::runtime_error(_("it is not a dictionary of sections"));
    LanguagePack::Sections sections;
    forEachEntry(root.get(), [&](const std::string& name, plist_t node) { sections[name] = sectionOf(node, name); });
    return LanguagePack(std::move(sections));
}

std::optional<int> languageIdOf(std::string_view name) {
    for (std::size_t id = 0; id < languages.size(); ++id) {
        if (languages[id].name == name) return static_cast<int>(id);
    }
    return std::nullopt;
}

std::string_view languageName(int languageId) {
    return languageOf(languageId).name;
}

std::string_view languageFile(int languageId) {
    return languageOf(languageId).file;
}

}  // namespace quode

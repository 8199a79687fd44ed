// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "texts/translation.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <mutex>
#include <stdexcept>

#include "texts/MessageCatalogue.h"

namespace quode {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view english = "en";
constexpr const char* extension = ".mo";

struct Language {
    std::string name;
    std::unique_ptr<const MessageCatalogue> catalogue;
    bool isRightToLeft = false;
};

// The language of the process. Catalogues stay loaded after a change: their texts may still be in use.
struct Choice {
    std::atomic<const Language*> language = nullptr;
    std::mutex mutex;
    std::map<fs::path, Language> loaded;
};

Choice& choice() {
    static Choice made;
    return made;
}

const MessageCatalogue* catalogue() {
    const Language* language = choice().language;
    return language != nullptr ? language->catalogue.get() : nullptr;
}

fs::path folderOf(const fs::path& bundle) {
    return bundle / "locale";
}

std::unique_ptr<const MessageCatalogue> readCatalogue(const fs::path& file) {
    std::error_code error;
    if (!fs::is_regular_file(file, error)) return nullptr;  // a pipe would wait for its writer
    std::ifstream stream(file, std::ios::binary);
    if (!stream) return nullptr;
    try {
        return std::make_unique<MessageCatalogue>(std::string(std::istreambuf_iterator<char>(stream), {}));
    } catch (const std::runtime_error&) {
        return nullptr;
    }
}

std::string_view viewOf(fmt::string_view text) {
    return {text.data(), text.size()};
}

std::string_view translated(const translation::Text& text) {
    const std::string_view own = viewOf(text.english);
    const bool hasPlural = text.plural.size() > 0;
    const std::string_view untranslated = hasPlural && text.number != 1 ? viewOf(text.plural) : own;
    const MessageCatalogue* texts = catalogue();
    if (texts == nullptr) return untranslated;
    const auto found = hasPlural ? texts->findPlural(own, text.number, text.context) : texts->find(own, text.context);
    return found.value_or(untranslated);
}

}  // namespace

std::vector<std::string> availableLanguages(const fs::path& bundle) {
    std::vector<std::string> languages{std::string(english)};
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folderOf(bundle), error)) {
        if (entry.path().extension() == extension) languages.push_back(entry.path().stem().string());
    }
    std::ranges::sort(languages);
    return languages;
}

bool useLanguage(std::string_view language, const fs::path& bundle) {
    Choice& made = choice();
    if (language == english || language.empty() || language.find('/') != std::string_view::npos) {
        made.language = nullptr;
        return language == english;
    }
    const fs::path file = folderOf(bundle) / (std::string(language) + extension);
    const std::scoped_lock lock(made.mutex);
    auto found = made.loaded.find(file);
    if (found == made.loaded.end()) {
        auto read = readCatalogue(file);
        if (!read) {
            made.language = nullptr;
            return false;
        }
        Language loaded{std::string(language), std::move(read), isRightToLeft(language)};
        found = made.loaded.emplace(file, std::move(loaded)).first;
    }
    made.language = &found->second;
    return true;
}

std::string_view languageInUse() {
    const Language* language = choice().language;
    return language != nullptr ? std::string_view(language->name) : english;
}

bool isRightToLeft(std::string_view language) {
    constexpr std::array<std::string_view, 12> languages{"ar", "ckb", "dv", "fa", "he", "ks",
                                                         "ps", "sd",  "ug", "ur", "yi", "prs"};
    return std::ranges::find(languages, language.substr(0, language.find_first_of("_@-"))) != languages.end();
}

std::string isolated(std::string_view text) {
    constexpr std::string_view start = "\u2068", end = "\u2069";
    const Language* language = choice().language;
    if (language == nullptr || !language->isRightToLeft || text.empty()) return std::string(text);
    return std::string(start).append(text).append(end);
}

const char* _(const char* text) {
    return _c("", text);
}

const char* _c(const char* context, const char* text) {
    const MessageCatalogue* texts = catalogue();
    const auto found = texts != nullptr ? texts->find(text, context) : std::nullopt;
    return found ? found->data() : text;
}

std::string translation::filled(const Text& text, fmt::format_args values) {
    const std::string_view format = translated(text);
    try {
        return fmt::vformat({format.data(), format.size()}, values);
    } catch (const fmt::format_error&) {
        const bool isPlural = text.plural.size() > 0 && text.number != 1;
        return fmt::vformat(isPlural ? text.plural : text.english, values);
    }
}

}  // namespace quode

// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace quode {

/// The texts of one language, in sections. A pack that is empty has no text for anything.
class LanguagePack {
  public:
    using Section = std::map<std::string, std::string, std::less<>>;
    using Sections = std::map<std::string, Section, std::less<>>;

    LanguagePack() = default;
    explicit LanguagePack(Sections sections) : sections_(std::move(sections)) {}

    /// The text of a key; nothing when the section or the key is missing.
    std::optional<std::string> text(std::string_view section, std::string_view key) const;

    const Sections& sections() const { return sections_; }

  private:
    Sections sections_;
};

/// Reads a pack from the bytes of a property list, XML or binary; a leading byte-order mark is skipped.
/// Throws std::runtime_error, saying what is wrong, when the bytes are no property list, not a dictionary of
/// dictionaries of texts, or not UTF-8.
LanguagePack parseLanguagePack(std::string_view bytes);

/// The languages of the packs by their id.
enum LanguageId : int { languageTurkish = 0, languageEnglish = 1, languageFrench = 2, languageGerman = 3 };

/// The id of a language by its name "tr", "en", "fr" or "de"; nothing for another name.
std::optional<int> languageIdOf(std::string_view name);

/// The name of a language, "tr", "en", "fr" or "de"; an unknown id reads as English.
std::string_view languageName(int languageId);

/// The path of a language's file below the bundle's folder, such as "tr.lproj/tr.plist"; an unknown id reads as
/// English.
std::string_view languageFile(int languageId);

}  // namespace quode

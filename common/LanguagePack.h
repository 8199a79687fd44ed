// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace quode {

/// The texts of one language, in sections. An empty pack has no texts.
///
/// @code
///   const quode::LanguagePack pack = quode::parseLanguagePack(bytes);              // the content of a .plist file
///   const std::optional<std::string> sunrise = pack.text("PRAYERS", "TULU");       // nothing when missing
/// @endcode
class LanguagePack {
  public:
    using Section = std::map<std::string, std::string, std::less<>>;
    using Sections = std::map<std::string, Section, std::less<>>;

    LanguagePack() = default;
    explicit LanguagePack(Sections sections) : sections_(std::move(sections)) {}

    /// The text of a key; nothing when the section or the key is missing.
    std::optional<std::string> text(std::string_view section, std::string_view key) const;

    /// All sections with their texts.
    const Sections& sections() const { return sections_; }

  private:
    Sections sections_;
};

/// Reads a pack from the bytes of a property list, XML or binary; a leading byte-order mark is skipped.
/// @throw std::runtime_error  with the reason, when the bytes are not a property list, not a dictionary of dictionaries
///                            of texts, or not UTF-8
LanguagePack parseLanguagePack(std::string_view bytes);

/// The languages of the packs. Fixed values: the widget and stored settings use them.
enum LanguageId : int { languageTurkish = 0, languageEnglish = 1, languageFrench = 2, languageGerman = 3 };

/// The id of a language by its name "tr", "en", "fr" or "de"; nothing for another name.
std::optional<int> languageIdOf(std::string_view name);

/// The name of a language, "tr", "en", "fr" or "de"; that of English for an unknown id.
std::string_view languageName(int languageId);

/// The path of a language's file in the bundle, such as "tr.lproj/tr.plist"; that of English for an unknown id.
std::string_view languageFile(int languageId);

}  // namespace quode

// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "texts/plural_rule.h"

namespace quode {

/// The texts of one language, as `msgfmt --endianness=little` compiles them from a .po file.
///
/// Offsets are checked at use, so loading a catalogue costs only reading the file. A damaged catalogue lacks
/// texts but does no harm.
class MessageCatalogue {
  public:
    /// @param bytes  the content of a .mo file
    /// @throw std::runtime_error  when the bytes are not a catalogue
    explicit MessageCatalogue(std::string bytes);

    /// The translation of a text, with a null byte after it; nothing when the catalogue has none.
    /// @param context  distinguishes equal English texts; usually empty
    std::optional<std::string_view> find(std::string_view english, std::string_view context = {}) const;

    /// The translation of a text with plural forms.
    /// @param english  the singular
    /// @param number   selects the form
    std::optional<std::string_view> findPlural(std::string_view english, unsigned long number,
                                               std::string_view context = {}) const;

    /// A field of the catalogue's header such as "Language"; empty when it is missing.
    std::string_view field(std::string_view name) const;

  private:
    std::uint32_t number(std::size_t offset) const;
    std::string_view textAt(std::size_t table, std::uint32_t index) const;
    std::optional<std::string_view> translation(std::string_view key) const;

    std::string bytes_;
    std::uint32_t count_ = 0;
    std::size_t originals_ = 0;
    std::size_t translations_ = 0;
    PluralRule rule_;
};

}  // namespace quode

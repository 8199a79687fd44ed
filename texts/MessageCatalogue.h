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
/// Offsets are checked where they are used, so that loading a catalogue costs no more than reading the file, and a
/// damaged one lacks texts but does no harm.
class MessageCatalogue {
  public:
    /// @param bytes  the content of a .mo file
    /// @throw std::runtime_error  when the bytes are not those of a catalogue
    explicit MessageCatalogue(std::string bytes);

    /// The translation of a text, ended by a null byte; nothing when the catalogue has none.
    /// @param context  tells two equal English texts apart; empty for most
    std::optional<std::string_view> find(std::string_view english, std::string_view context = {}) const;

    /// The plural form for a number; `english` is the singular.
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

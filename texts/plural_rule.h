// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#pragma once

#include <string>
#include <string_view>

namespace quode {

/// The rule for the plural form of a number: the expression in the "Plural-Forms" field of a catalogue, such as
/// "n%10==1 && n%100!=11 ? 0 : 1". The default is the rule of English.
class PluralRule {
  public:
    PluralRule() = default;

    /// @param expression  ends at the first semicolon
    /// @throw std::runtime_error  when the expression cannot be read
    explicit PluralRule(std::string_view expression);

    /// The index of the plural form for a number, counted from 0.
    unsigned long form(unsigned long number) const;

  private:
    std::string expression_ = "n!=1";
};

}  // namespace quode

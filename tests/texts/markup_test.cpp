// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "texts/markup.h"

#include <gtest/gtest.h>

namespace quode {
namespace {

TEST(EscapedMarkup, LeavesNothingThatIsReadAsMarkup) {
    EXPECT_EQ(escapedMarkup("<b>Fajr</b> & Isha"), "&lt;b&gt;Fajr&lt;/b&gt; &amp; Isha");
    EXPECT_EQ(escapedMarkup("&amp;"), "&amp;amp;");
    EXPECT_EQ(escapedMarkup("İstanbul \"05:43\""), "İstanbul \"05:43\"");
    EXPECT_EQ(escapedMarkup(""), "");
}

}  // namespace
}  // namespace quode

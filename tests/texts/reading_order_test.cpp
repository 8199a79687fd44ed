// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "texts/reading_order.h"

#include <gtest/gtest.h>

#include "compiled_catalogue.h"
#include "support/temporary_folder.h"
#include "texts/translation.h"

namespace quode {
namespace {

class ReadingOrder : public testing::Test {
  protected:
    ReadingOrder() {
        test::compileCatalogue(folder.path() / "locale/ar.mo", "ar", "nplurals=2; plural=n != 1;", "");
        useLanguage("ar", folder.path());
    }
    ~ReadingOrder() override { useLanguage("en", folder.path()); }

    /// The text in its order, with brackets in place of the marks.
    static std::string ordered(const std::string& text) {
        return withBrackets(inReadingOrder(replaced(replaced(text, "<", "\u2068"), ">", "\u2069")));
    }
    static std::string withBrackets(const std::string& text) {
        return replaced(replaced(text, "\u2068", "<"), "\u2069", ">");
    }
    static std::string replaced(std::string text, const std::string& what, const std::string& by) {
        for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += by.size()) {
            text.replace(at, what.size(), by);
        }
        return text;
    }

    test::TemporaryFolder folder;
};

TEST_F(ReadingOrder, KeepsCommandsTogetherWithTheirValues) {
    EXPECT_EQ(ordered("لاختيارها: quode method set <diyanet>؛ للبقاء"),
              "لاختيارها: <quode method set <diyanet>>؛ للبقاء");
    EXPECT_EQ(ordered("اختر مدينتك: quode city home NAME."), "اختر مدينتك: <quode city home NAME>.");
    EXPECT_EQ(ordered("اختر: quode city home <مكة>"), "اختر: <quode city home <مكة>>");
    EXPECT_EQ(ordered("جرّب: <quode method show> --help"), "جرّب: <<quode method show> --help>");
    EXPECT_EQ(ordered("مثل \"quode city move 2 1\"،"), "مثل \"<quode city move 2 1>\"،");
    EXPECT_EQ(ordered("عيّن TZ=Europe/Istanbul، أو"), "عيّن <TZ=Europe/Istanbul>، أو");
}

TEST_F(ReadingOrder, KeepsAnglesDatesAndUnitsTogether) {
    EXPECT_EQ(ordered("القمر  +24°40'"), "القمر  <+24°40'>");
    EXPECT_EQ(ordered("القبلة 151°34' من"), "القبلة <151°34'> من");
    EXPECT_EQ(ordered("المسافة   2407 km  إلى"), "المسافة   <2407 km>  إلى");
    EXPECT_EQ(ordered("حتى 2026-11-21."), "حتى <2026-11-21>.");
    EXPECT_EQ(ordered("الإحداثيات 41.0138° N  28.9497° E"), "الإحداثيات <41.0138° N>  <28.9497° E>");
}

TEST_F(ReadingOrder, LeavesWhatKeepsItsOrderByItself) {
    for (const char* text : {"الفجر         06:06", "الشمس  07:58 / 17:41", "<السبت>، <21> <نوفمبر> 2026",
                             "Istanbul  Istanbul, Turkey  41.0138° N", "<Istanbul> أكبر مدينة", "", "18 د 47 ث"}) {
        EXPECT_EQ(ordered(text), text);
    }
}

TEST_F(ReadingOrder, WorksLineByLineAndLeavesEmphasisAlone) {
    EXPECT_EQ(ordered("اختر:\nquode city list\nأو quode next"), "اختر:\nquode city list\nأو <quode next>");
    EXPECT_EQ(ordered("\x1b[33m! شغّل quode-alarmd\x1b[0m"), "\x1b[33m! شغّل <quode-alarmd>\x1b[0m");
}

TEST_F(ReadingOrder, KeepsAWrappedPartTogetherOnEachLine) {
    EXPECT_EQ(ordered("هي: <University\nof Sciences>. لاختيارها"), "هي: <University>\n<of Sciences>. لاختيارها");
}

TEST_F(ReadingOrder, ChangesNothingInOtherLanguages) {
    useLanguage("en", folder.path());
    EXPECT_EQ(inReadingOrder("مكة: quode city home NAME"), "مكة: quode city home NAME");
}

TEST_F(ReadingOrder, KeepsAClockWithItsHalfOfTheDay) {
    EXPECT_EQ(withBrackets(withPartsTogether("Sun : 05:41 ص / 07:58 م")), "Sun : <05:41 ص> / <07:58 م>");
    EXPECT_EQ(withBrackets(withPartsTogether("21 نوفمبر 2026")), "<21 نوفمبر 2026>");
    EXPECT_EQ(withBrackets(withPartsTogether("05:41 ص")), "<05:41 ص>");
    for (const char* text : {"Sun : 05:41 am / 07:58 pm", "", "Istanbul"}) EXPECT_EQ(withPartsTogether(text), text);
}

}  // namespace
}  // namespace quode

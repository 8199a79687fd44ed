// SPDX-FileCopyrightText: the Quode authors
// SPDX-License-Identifier: MIT
#include "alarms/AlarmJournal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <fstream>
#include <iterator>
#include <memory>

#include "support/odd_files.h"
#include "support/temporary_folder.h"

namespace quode {
namespace {

using std::chrono::milliseconds;
using test::OddFile;
using test::oddFiles;
using test::placeOddFile;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using Kind = AlarmIntent::Kind;

const AlarmIntent on{Kind::on, 3, "quode-1"};
const AlarmIntent off{Kind::off, 6, "quode-2"};
const AlarmIntent renewal{};

class AlarmJournalTest : public testing::Test {
  protected:
    std::unique_ptr<AlarmJournal> open() { return std::make_unique<AlarmJournal>(folder.path(), milliseconds(0)); }
    void write(const std::string& text) { std::ofstream(file) << text; }

    test::TemporaryFolder folder;
    const std::filesystem::path file = folder.path() / ".alarms.lock";
};

TEST_F(AlarmJournalTest, HandsOnWhatWasBegunAndNotEnded) {
    open()->begin(on);
    EXPECT_TRUE(AlarmJournal::isPending(folder.path()));
    const auto journal = open();
    EXPECT_THAT(journal->unfinished(), ElementsAre(on));
    journal->begin(renewal);
    journal->begin(off);
    journal->end(on);
    EXPECT_THAT(journal->unfinished(), ElementsAre(renewal, off));
    journal->end(renewal);
    journal->end(off);
    EXPECT_THAT(journal->unfinished(), IsEmpty());
    EXPECT_FALSE(AlarmJournal::isPending(folder.path()));
}

TEST_F(AlarmJournalTest, KnowsNothingBeforeThereIsOne) {
    EXPECT_FALSE(AlarmJournal::isPending(folder.path()));
    EXPECT_FALSE(std::filesystem::exists(file));
}

TEST_F(AlarmJournalTest, PassesOverALineThatWasCutOff) {
    write("on 3 quode-1\noff 6 quo");
    EXPECT_THAT(open()->unfinished(), ElementsAre(on));
    open()->begin(renewal);
    EXPECT_THAT(open()->unfinished(), ElementsAre(on, renewal));
}

TEST_F(AlarmJournalTest, PassesOverLinesThatItDoesNotKnow) {
    write("\n???\non\non x\non 7 quode-1\noff 6 quode-2\nrenewed\n");
    EXPECT_THAT(open()->unfinished(), ElementsAre(off));
}

TEST_F(AlarmJournalTest, IsHeldByOneAtATime) {
    const auto first = open();
    EXPECT_TRUE(first->isHeld());
    const auto second = open();
    EXPECT_FALSE(second->isHeld());
    EXPECT_THAT(second->problem(), HasSubstr("Another program is changing the alarms"));
}

TEST_F(AlarmJournalTest, IsForTheUserAlone) {
    open();
    struct stat facts {};
    ASSERT_EQ(::stat(file.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777U, 0600U);
}

TEST_F(AlarmJournalTest, RefusesAtOnceWhatIsNoRegularFile) {
    for (const OddFile kind : oddFiles) {
        if (!placeOddFile(kind, file)) continue;
        const auto journal = open();
        EXPECT_FALSE(journal->isHeld());
        EXPECT_THAT(journal->problem(), HasSubstr(file.string() + " is not a regular file. Move it away."));
        EXPECT_FALSE(AlarmJournal::isPending(folder.path()));
        std::filesystem::remove(file);
    }
}

}  // namespace
}  // namespace quode

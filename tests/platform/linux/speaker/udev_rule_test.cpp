// SPDX-License-Identifier: MIT
#include <fstream>
#include <string>

#include <gtest/gtest.h>

#include "platform/linux/speaker/speaker_device.h"

namespace quavix {
namespace {

const std::string FileName(PcSpeakerRulePath.substr(PcSpeakerRulePath.rfind('/') + 1));

TEST(PcSpeakerRule, EqualsTheShippedRule) {
    std::ifstream shipped(QUAVIX_SOURCE_DIR "/packaging/" + FileName);
    ASSERT_TRUE(shipped);
    std::string rules;
    for (std::string line; std::getline(shipped, line);) {
        if (!line.starts_with('#'))
            rules += line + '\n';
    }
    EXPECT_EQ(rules, std::string(PcSpeakerRule) + '\n');
}

TEST(PcSpeakerRule, SortsBeforeTheRuleThatTurnsTagsIntoPermissions) {
    EXPECT_LT(FileName, "73-seat-late.rules");
}

TEST(PcSpeakerRule, MatchesTheSpeakerAloneAndNamesNoGroup) {
    for (const char* part : {R"(SUBSYSTEM=="input")", R"(ATTRS{name}=="PC Speaker")",
                             R"(ATTRS{phys}=="isa0061/input0")", R"(TAG+="uaccess")"})
        EXPECT_NE(PcSpeakerRule.find(part), std::string_view::npos) << part;
    EXPECT_EQ(PcSpeakerRule.find("GROUP"), std::string_view::npos);
    EXPECT_EQ(PcSpeakerRule.find("MODE"), std::string_view::npos);
}

TEST(PcSpeakerRule, CanBeQuotedForAShell) {
    EXPECT_EQ(PcSpeakerRule.find('\''), std::string_view::npos);
}

}  // namespace
}  // namespace quavix

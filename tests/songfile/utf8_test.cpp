// SPDX-License-Identifier: MIT
#include "songfile/utf8.h"

#include <gtest/gtest.h>

namespace quavix {
namespace {

using namespace std::string_literals;

std::string Repaired(std::string_view bytes, std::size_t pieceSize) {
    std::string text;
    Utf8Repair repair(text);
    for (; !bytes.empty(); bytes.remove_prefix(std::min(pieceSize, bytes.size())))
        repair.Add(bytes.substr(0, pieceSize));
    repair.Finish();
    return text;
}

TEST(Utf8, AcceptsShortestFormsOnly) {
    for (const char* good : {"", "abcdefghijk", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF",
                             "\xEE\x80\x80", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF", "abcdefgh\xC3\xA9xyz"})
        EXPECT_TRUE(IsUtf8(good)) << good;
    EXPECT_TRUE(IsUtf8("a\0b"s));
    for (const char* bad : {"\x80", "\xC0\x80", "\xC1\xBF", "\xC2", "\xC2\x41", "\xE0\x9F\xBF",
                            "\xED\xA0\x80", "\xE2\x82", "\xE2\x82\x41", "\xF0\x8F\xBF\xBF",
                            "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xFF", "abcdefghi\xE9"})
        EXPECT_FALSE(IsUtf8(bad)) << testing::PrintToString(bad);
}

TEST(Utf8Repair, KeepsWellFormedSequencesAndTakesOtherBytesAsLatin1) {
    const std::string bytes = "a\xE9\xC3\xA9\xF0\x9F\x8E\xB5\xFF\x80\xE2\x82\xAC\xE2\x82z\xC3";
    const std::string expected =
        "a\xC3\xA9\xC3\xA9\xF0\x9F\x8E\xB5\xC3\xBF\xC2\x80\xE2\x82\xAC\xC3\xA2\xC2\x82z\xC3\x83";
    for (std::size_t pieceSize = 1; pieceSize <= bytes.size(); ++pieceSize)
        EXPECT_EQ(Repaired(bytes, pieceSize), expected) << pieceSize;
    EXPECT_TRUE(IsUtf8(expected));
}

}  // namespace
}  // namespace quavix

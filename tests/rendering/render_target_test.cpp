// SPDX-License-Identifier: MIT
#include "rendering/render_target.h"

#include <gtest/gtest.h>

#include "rendering/rendered_sound.h"
#include "support/temporary_folder.h"

namespace quavix {
namespace {

class RenderTargetTest : public testing::Test {
  protected:
    test::TemporaryFolder Folder;
};

TEST_F(RenderTargetTest, TheFileAppearsOnlyWhenItIsComplete) {
    RenderTarget target(Folder.File("a.wav"));
    target.Stream() << "sound";
    EXPECT_FALSE(std::filesystem::exists(Folder.File("a.wav")));
    target.Commit();
    EXPECT_EQ(Folder.Content("a.wav"), "sound");
    EXPECT_EQ(Folder.EntryCount(), 1);
}

TEST_F(RenderTargetTest, ATargetThatIsNotCommittedLeavesNoFile) {
    Folder.Put("a.wav", "old");
    {
        RenderTarget target(Folder.File("a.wav"));
        target.Stream() << "half";
    }
    EXPECT_EQ(Folder.Content("a.wav"), "old");
    EXPECT_EQ(Folder.EntryCount(), 1);
}

TEST_F(RenderTargetTest, ASymbolicLinkStaysAndTheFileBehindItIsReplaced) {
    Folder.Put("real.wav", "old");
    std::filesystem::create_symlink("real.wav", Folder.File("link.wav"));
    RenderTarget target(Folder.File("link.wav"));
    target.Stream() << "new";
    target.Commit();
    EXPECT_TRUE(std::filesystem::is_symlink(Folder.File("link.wav")));
    EXPECT_EQ(Folder.Content("real.wav"), "new");
}

TEST_F(RenderTargetTest, ADeviceIsWrittenAndStaysADevice) {
    RenderTarget target("/dev/null");
    target.Stream() << "sound";
    target.Commit();
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST_F(RenderTargetTest, AFullDeviceIsReported) {
    RenderTarget target("/dev/full");
    target.Stream() << "sound";
    EXPECT_THROW(target.Commit(), RenderError);
}

TEST_F(RenderTargetTest, FoldersAndMissingPathsAreRefused) {
    EXPECT_THROW(RenderTarget(Folder.Path().string()), RenderError);
    EXPECT_THROW(RenderTarget(Folder.File("none/a.wav")), RenderError);
    EXPECT_THROW(RenderTarget(""), RenderError);
}

}  // namespace
}  // namespace quavix

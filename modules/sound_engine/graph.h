// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "modules/sound_engine/channel_strip.h"
#include "modules/sound_engine/group_strip.h"
#include "modules/sound_engine/unit.h"

namespace quavix::sound_engine {

struct ChannelNode;
struct GroupNode;

/// What the caller sees of a unit, a channel and a group, and who is connected with whom.
struct UnitNode {
    /// What the caller knows it by.
    void* Handle = nullptr;
    std::shared_ptr<Unit> Does;
    std::vector<UnitNode*> Inputs;
    /// Those that have this as an input.
    std::vector<UnitNode*> Users;
    /// Null for none.
    GroupNode* In = nullptr;
    /// The lower, the earlier it came into its group.
    std::uint64_t Since = 0;
    /// Null for none.
    ChannelNode* On = nullptr;
};

struct ChannelNode {
    void* Handle = nullptr;
    int Number = 0;
    std::shared_ptr<ChannelStrip> Strip;
    UnitNode* Plays = nullptr;
    GroupNode* In = nullptr;
};

struct GroupNode {
    void* Handle = nullptr;
    std::shared_ptr<GroupStrip> Strip = std::make_shared<GroupStrip>();
    /// Null for the master group and no other.
    GroupNode* Parent = nullptr;
    std::vector<GroupNode*> Groups;
    std::vector<ChannelNode*> Channels;
    std::vector<UnitNode*> Units;
};

/// A channel that was stopped and still fades out, as long as its unit is heard nowhere else.
struct Echo {
    std::shared_ptr<Unit> Does;
    std::shared_ptr<ChannelStrip> Strip;
    GroupNode* In = nullptr;
};

/// All units, channels and groups of a system. Pointers handed in are its own, of objects that are still
/// there.
///
/// Thread: the caller's side.
class Graph {
  public:
    /// With room for so many channels.
    explicit Graph(int channels);

    GroupNode& Master() { return *groups_.front(); }
    const std::vector<std::unique_ptr<UnitNode>>& Units() const { return units_; }
    const std::vector<Echo>& Echoes() const { return echoes_; }

    UnitNode* AddUnit(std::shared_ptr<Unit> unit);
    /// Puts `input` before `unit`. False where that would close a loop.
    bool Connect(UnitNode& unit, UnitNode& input);
    /// Out of its group and connections; its inputs become inputs of its users. A channel that plays it must
    /// have been stopped.
    void Isolate(UnitNode& unit);
    /// An isolated one.
    void Erase(UnitNode& unit);

    /// The number of a free channel; -1 for none.
    int FreeChannel() const;
    int ChannelCount() const { return static_cast<int>(channels_.size()); }
    /// Null where nothing plays.
    ChannelNode* ChannelAt(int number) { return channels_[static_cast<std::size_t>(number)].get(); }
    /// Plays on a free channel, in the master group. No other channel plays the unit.
    ChannelNode* Play(int number, UnitNode& unit, bool paused);
    void Stop(ChannelNode& channel);
    void Move(ChannelNode& channel, GroupNode& group);

    GroupNode* AddGroup();
    /// Moves a group into another. False where that would close a loop.
    bool Move(GroupNode& group, GroupNode& parent);
    /// Behind the other units of the group.
    void Move(UnitNode& unit, GroupNode& group);
    /// Any but the master group.
    void Erase(GroupNode& group);

  private:
    void ForgetEcho(const UnitNode& unit);

    std::vector<std::unique_ptr<UnitNode>> units_;
    std::vector<std::unique_ptr<ChannelNode>> channels_;
    std::vector<std::unique_ptr<GroupNode>> groups_;
    std::vector<Echo> echoes_;
    std::uint64_t moves_ = 0;
};

}  // namespace quavix::sound_engine

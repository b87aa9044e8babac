// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "modules/sound_engine/sound_engine.h"
#include "modules/sound_engine/strips.h"
#include "modules/sound_engine/unit.h"

namespace quavix::sound_engine {

/// Thrown to refuse a call. The interface functions catch it and return its result.
struct Refusal {
    SoundResult Result;
};

/// Throws Refusal with the result `otherwise` unless `holds`.
inline void Require(bool holds, SoundResult otherwise) {
    if (!holds)
        throw Refusal{otherwise};
}

struct ChannelNode;
struct GroupNode;

/// The caller's view of units, channels and groups, and of their connections.
struct UnitNode {
    /// The caller's pointer.
    void* Handle = nullptr;
    std::shared_ptr<Unit> Does;
    std::vector<UnitNode*> Inputs;
    /// Units that have this one as an input.
    std::vector<UnitNode*> Users;
    /// The group of the unit; null for none.
    GroupNode* In = nullptr;
    /// Order of entry into groups: lower is earlier.
    std::uint64_t Since = 0;
    /// The channel that plays the unit; null for none.
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
    /// Null for the master group only.
    GroupNode* Parent = nullptr;
    std::vector<GroupNode*> Groups;
    std::vector<ChannelNode*> Channels;
    std::vector<UnitNode*> Units;
};

/// A stopped channel that still fades out, unless its unit is heard elsewhere.
struct Echo {
    std::shared_ptr<Unit> Does;
    std::shared_ptr<ChannelStrip> Strip;
    GroupNode* In = nullptr;
};

/// All units, channels and groups of a system. Pointers passed in must be its own and of existing objects.
///
/// Thread: the caller's side.
class Graph {
  public:
    /// Makes a graph with room for this many channels.
    explicit Graph(int channels);

    GroupNode& Master() { return *groups_.front(); }
    const std::vector<std::unique_ptr<UnitNode>>& Units() const { return units_; }
    const std::vector<Echo>& Echoes() const { return echoes_; }

    UnitNode* AddUnit(std::shared_ptr<Unit> unit);
    /// Connects `input` to `unit`. Refused if that would close a loop.
    void Connect(UnitNode& unit, UnitNode& input);
    /// Removes the unit from its group and connections; its inputs become inputs of its users. A channel that
    /// plays it must have been stopped.
    void Isolate(UnitNode& unit);
    /// Erases an isolated unit.
    void Erase(UnitNode& unit);

    /// Returns the number of a free channel, or -1 if there is none.
    int FreeChannel() const;
    int ChannelCount() const { return static_cast<int>(channels_.size()); }
    /// Returns null if no unit plays there.
    ChannelNode* ChannelAt(int number) { return channels_[static_cast<std::size_t>(number)].get(); }
    /// Plays a unit on a free channel, in the master group. No other channel may play the unit.
    ChannelNode* Play(int number, UnitNode& unit, bool paused);
    void Stop(ChannelNode& channel);
    void Move(ChannelNode& channel, GroupNode& group);

    GroupNode* AddGroup();
    /// Moves a group into another. Refused if that would close a loop.
    void Move(GroupNode& group, GroupNode& parent);
    /// Moves a unit after the other units of the group.
    void Move(UnitNode& unit, GroupNode& group);
    /// Erases a group, which must not be the master group.
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

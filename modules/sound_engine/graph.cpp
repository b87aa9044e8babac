// SPDX-License-Identifier: MIT
#include "modules/sound_engine/graph.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace quavix::sound_engine {
namespace {

template <class Node>
bool Contains(const std::vector<Node*>& nodes, const Node& node) {
    return std::find(nodes.begin(), nodes.end(), &node) != nodes.end();
}

template <class Node>
void EraseOwned(std::vector<std::unique_ptr<Node>>& nodes, const Node& node) {
    std::erase_if(nodes, [&](const auto& owned) { return owned.get() == &node; });
}

// Returns true if `unit` hears `source`, directly or through other units.
bool Hears(const UnitNode& unit, const UnitNode& source) {
    std::vector<const UnitNode*> open = {&unit};
    std::unordered_set<const UnitNode*> seen = {&unit};
    while (!open.empty()) {
        const UnitNode* next = open.back();
        open.pop_back();
        if (next == &source)
            return true;
        for (const UnitNode* input : next->Inputs) {
            if (seen.insert(input).second)
                open.push_back(input);
        }
    }
    return false;
}

}  // namespace

Graph::Graph(int channels) : channels_(static_cast<std::size_t>(channels)) {
    groups_.push_back(std::make_unique<GroupNode>());
}

UnitNode* Graph::AddUnit(std::shared_ptr<Unit> unit) {
    units_.push_back(std::make_unique<UnitNode>());
    units_.back()->Does = std::move(unit);
    return units_.back().get();
}

void Graph::Connect(UnitNode& unit, UnitNode& input) {
    Require(!Hears(input, unit), SOUND_LOOP);
    ForgetEcho(unit);
    ForgetEcho(input);
    if (!Contains(unit.Inputs, input)) {
        unit.Inputs.push_back(&input);
        input.Users.push_back(&unit);
    }
}

void Graph::Isolate(UnitNode& unit) {
    for (UnitNode* input : unit.Inputs)
        std::erase(input->Users, &unit);
    for (UnitNode* user : unit.Users) {
        std::erase(user->Inputs, &unit);
        for (UnitNode* input : unit.Inputs)
            Connect(*user, *input);
    }
    unit.Inputs.clear();
    unit.Users.clear();
    if (unit.In != nullptr)
        std::erase(unit.In->Units, &unit);
    unit.In = nullptr;
}

void Graph::Erase(UnitNode& unit) {
    EraseOwned(units_, unit);
}

int Graph::FreeChannel() const {
    const auto free = std::find(channels_.begin(), channels_.end(), nullptr);
    return free == channels_.end() ? -1 : static_cast<int>(free - channels_.begin());
}

ChannelNode* Graph::Play(int number, UnitNode& unit, bool paused) {
    ForgetEcho(unit);
    auto& channel = channels_[static_cast<std::size_t>(number)];
    channel = std::make_unique<ChannelNode>();
    channel->Number = number;
    channel->Strip = std::make_shared<ChannelStrip>(paused);
    channel->Plays = &unit;
    channel->In = &Master();
    Master().Channels.push_back(channel.get());
    unit.On = channel.get();
    return channel.get();
}

void Graph::Stop(ChannelNode& channel) {
    std::erase_if(echoes_, [](const Echo& echo) { return echo.Strip->Gone(); });
    UnitNode& unit = *channel.Plays;
    unit.On = nullptr;
    if (unit.Inputs.empty() && unit.Users.empty() && unit.In == nullptr) {
        channel.Strip->SetPaused(true);
        echoes_.push_back({unit.Does, channel.Strip, channel.In});
    }
    std::erase(channel.In->Channels, &channel);
    channels_[static_cast<std::size_t>(channel.Number)].reset();
}

void Graph::Move(ChannelNode& channel, GroupNode& group) {
    std::erase(channel.In->Channels, &channel);
    group.Channels.push_back(&channel);
    channel.In = &group;
}

GroupNode* Graph::AddGroup() {
    groups_.push_back(std::make_unique<GroupNode>());
    groups_.back()->Parent = &Master();
    Master().Groups.push_back(groups_.back().get());
    return groups_.back().get();
}

void Graph::Move(GroupNode& group, GroupNode& parent) {
    for (const GroupNode* above = &parent; above != nullptr; above = above->Parent)
        Require(above != &group, SOUND_LOOP);
    std::erase(group.Parent->Groups, &group);
    parent.Groups.push_back(&group);
    group.Parent = &parent;
}

// Ends the echo of a unit that is now heard elsewhere.
void Graph::ForgetEcho(const UnitNode& unit) {
    std::erase_if(echoes_, [&](const Echo& echo) { return echo.Does == unit.Does; });
}

void Graph::Move(UnitNode& unit, GroupNode& group) {
    ForgetEcho(unit);
    if (unit.In != nullptr)
        std::erase(unit.In->Units, &unit);
    group.Units.push_back(&unit);
    unit.In = &group;
    unit.Since = ++moves_;
}

void Graph::Erase(GroupNode& group) {
    GroupNode& parent = *group.Parent;
    for (UnitNode* unit : group.Units)
        unit->In = nullptr;
    for (ChannelNode* channel : group.Channels)
        channel->In = &parent;
    for (GroupNode* child : group.Groups)
        child->Parent = &parent;
    for (Echo& echo : echoes_) {
        if (echo.In == &group)
            echo.In = &parent;
    }
    parent.Channels.insert(parent.Channels.end(), group.Channels.begin(), group.Channels.end());
    parent.Groups.insert(parent.Groups.end(), group.Groups.begin(), group.Groups.end());
    std::erase(parent.Groups, &group);
    EraseOwned(groups_, group);
}

}  // namespace quavix::sound_engine

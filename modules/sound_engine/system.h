// SPDX-License-Identifier: MIT
#pragma once

#include <memory>

#include "modules/sound_engine/graph.h"
#include "modules/sound_engine/handles.h"
#include "modules/sound_engine/mixer.h"
#include "modules/sound_engine/output.h"
#include "modules/sound_engine/plan.h"
#include "modules/sound_engine/sound_engine.h"

namespace quavix::sound_engine {

/// One sound engine: its settings, its objects and its output. Its methods implement the functions of the
/// interface, with handles already resolved; they throw Refusal. The methods behind Opened() belong to an
/// initialized system.
///
/// Thread: the caller's side.
class System {
  public:
    static constexpr int MostChannels = 4096;

    /// `handles` must outlive the system.
    explicit System(Handles& handles) : handles_(handles) {}
    ~System() { handles_.RemoveAll(*this, true); }
    System(const System&) = delete;
    System& operator=(const System&) = delete;

    void SetBufferSize(unsigned int length, int count);
    unsigned int BufferLength() const { return bufferLength_; }
    int BufferCount() const { return bufferCount_; }
    void SetChannels(int channels);
    void SetOutput(int output);

    void Init(int maxChannels, const void* extra);
    /// Refused before Init().
    const Output& Opened() const;

    void Close();
    void Update();

    void* CreateUnit(int type);
    /// `number` is a channel number, or SOUND_CHANNEL_FREE with `reused` null or the channel to reuse, which
    /// keeps its handle.
    void* Play(int number, UnitNode& unit, bool paused, ChannelNode* reused);
    void* CreateGroup();
    void* MasterGroup() const { return graph_->Master().Handle; }

    void Connect(UnitNode& unit, UnitNode& input);
    void Remove(UnitNode& unit);
    void Release(UnitNode& unit);
    void Stop(ChannelNode& channel);
    /// Moves a unit, a channel or a group into a group.
    template <class Node>
    void Move(Node& node, GroupNode& group) {
        graph_->Move(node, group);
        Replan();
    }
    void Release(GroupNode& group);

    /// Has to be called after every change of a unit, a channel or a group.
    void Touch() const { mixer_->Touch(); }

  private:
    void RequireBeforeInit() const;
    void Replan() const { mixer_->Replace(BuildPlan(*graph_)); }
    void Silence(const UnitNode& unit);

    Handles& handles_;
    unsigned int bufferLength_ = 1024;
    int bufferCount_ = 4;
    int mostChannels_ = MostChannels;
    int outputKind_ = SOUND_OUTPUT_DEVICE;
    // Set between Init and Close.
    std::unique_ptr<Graph> graph_;
    std::shared_ptr<Mixer> mixer_;
    std::unique_ptr<Output> output_;
    unsigned int unitsMade_ = 0;
};

}  // namespace quavix::sound_engine

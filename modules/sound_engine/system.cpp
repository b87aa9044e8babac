// SPDX-License-Identifier: MIT
#include "modules/sound_engine/system.h"

#include <algorithm>

#include "modules/sound_engine/filter.h"
#include "modules/sound_engine/oscillator.h"

namespace quavix::sound_engine {
namespace {

constexpr unsigned int LongestBlock = 65536;
constexpr unsigned int LongestDelay = 1U << 20;

/// Makes a unit of a SoundUnitType; null for any other number. `serial` makes each unit's noise different.
std::shared_ptr<Unit> MakeUnit(int type, unsigned int serial) {
    switch (type) {
        case SOUND_OSCILLATOR:
            return std::make_shared<Oscillator>(serial);
        case SOUND_LOW_PASS:
            return std::make_shared<LowPass>();
        case SOUND_EQUALISER:
            return std::make_shared<Equaliser>();
        default:
            return nullptr;
    }
}

}  // namespace

void System::RequireBeforeInit() const {
    Require(output_ == nullptr, SOUND_INITIALIZED);
}

void System::SetBufferSize(unsigned int length, int count) {
    RequireBeforeInit();
    Require(length >= 1 && length <= LongestBlock, SOUND_INVALID_PARAMETER);
    Require(count >= 1 && static_cast<unsigned int>(count) <= LongestDelay / length, SOUND_INVALID_PARAMETER);
    bufferLength_ = length;
    bufferCount_ = count;
}

void System::SetChannels(int channels) {
    RequireBeforeInit();
    Require(channels >= 0 && channels <= MostChannels, SOUND_INVALID_PARAMETER);
    mostChannels_ = channels;
}

void System::SetOutput(int output) {
    RequireBeforeInit();
    switch (output) {
        case SOUND_OUTPUT_DEVICE:
        case SOUND_OUTPUT_NONE:
        case SOUND_OUTPUT_WAV:
        case SOUND_OUTPUT_NONE_BY_UPDATE:
        case SOUND_OUTPUT_WAV_BY_UPDATE:
            outputKind_ = output;
            break;
        default:
            throw Refusal{SOUND_UNKNOWN_TYPE};
    }
}

void System::Init(int maxChannels, const void* extra) {
    RequireBeforeInit();
    Require(maxChannels >= 0 && maxChannels <= MostChannels, SOUND_INVALID_PARAMETER);
    const bool toFile = outputKind_ == SOUND_OUTPUT_WAV || outputKind_ == SOUND_OUTPUT_WAV_BY_UPDATE;
    const bool byUpdate =
        outputKind_ == SOUND_OUTPUT_NONE_BY_UPDATE || outputKind_ == SOUND_OUTPUT_WAV_BY_UPDATE;
    Require(!toFile || extra != nullptr, SOUND_INVALID_PARAMETER);

    auto graph = std::make_unique<Graph>(std::min(maxChannels, mostChannels_));
    auto mixer = std::make_shared<Mixer>(bufferLength_);
    auto output = outputKind_ == SOUND_OUTPUT_DEVICE
                      ? OpenDevice(mixer, static_cast<int>(bufferLength_) * bufferCount_)
                      : OpenSoundless(mixer, toFile ? static_cast<const char*>(extra) : nullptr, byUpdate);
    Require(output != nullptr, SOUND_NO_OUTPUT);
    graph->Master().Handle = handles_.Add(&graph->Master(), *this);
    graph_ = std::move(graph);
    mixer_ = std::move(mixer);
    output_ = std::move(output);
}

void System::Close() {
    output_.reset();
    mixer_.reset();
    graph_.reset();
    handles_.RemoveAll(*this, false);
}

const Output& System::Opened() const {
    Require(output_ != nullptr, SOUND_UNINITIALIZED);
    return *output_;
}

void System::Update() {
    mixer_->Tidy();
    Require(output_->Update(), SOUND_UPDATE_FAILED);
}

void* System::CreateUnit(int type) {
    auto unit = MakeUnit(type, unitsMade_);
    Require(unit != nullptr, SOUND_UNKNOWN_TYPE);
    ++unitsMade_;
    UnitNode* node = graph_->AddUnit(std::move(unit));
    node->Handle = handles_.Add(node, *this);
    return node->Handle;
}

void* System::Play(int number, UnitNode& unit, bool paused, ChannelNode* reused) {
    Require(number >= SOUND_CHANNEL_FREE && number < graph_->ChannelCount(), SOUND_INVALID_PARAMETER);
    if (number < 0)
        number = reused != nullptr    ? reused->Number
                 : unit.On != nullptr ? unit.On->Number
                                      : graph_->FreeChannel();
    Require(number >= 0, SOUND_NO_CHANNEL);
    void* handle = reused != nullptr ? reused->Handle : nullptr;
    if (unit.On != reused)
        Silence(unit);
    if (ChannelNode* before = graph_->ChannelAt(number)) {
        if (before != reused)
            handles_.Remove(before->Handle);
        graph_->Stop(*before);
    }
    ChannelNode* channel = graph_->Play(number, unit, paused);
    if (handle == nullptr)
        handle = handles_.Add(channel, *this);
    else
        handles_.Rebind(handle, channel);
    channel->Handle = handle;
    Replan();
    return handle;
}

void System::Silence(const UnitNode& unit) {
    if (unit.On == nullptr)
        return;
    handles_.Remove(unit.On->Handle);
    graph_->Stop(*unit.On);
}

void* System::CreateGroup() {
    GroupNode* group = graph_->AddGroup();
    group->Handle = handles_.Add(group, *this);
    Replan();
    return group->Handle;
}

void System::Connect(UnitNode& unit, UnitNode& input) {
    graph_->Connect(unit, input);
    Replan();
}

void System::Remove(UnitNode& unit) {
    Silence(unit);
    graph_->Isolate(unit);
    Replan();
}

void System::Release(UnitNode& unit) {
    handles_.Remove(unit.Handle);
    Remove(unit);
    graph_->Erase(unit);
}

void System::Stop(ChannelNode& channel) {
    Silence(*channel.Plays);
    Replan();
}

void System::Release(GroupNode& group) {
    Require(group.Parent != nullptr, SOUND_INVALID_PARAMETER);
    handles_.Remove(group.Handle);
    graph_->Erase(group);
    Replan();
}

}  // namespace quavix::sound_engine

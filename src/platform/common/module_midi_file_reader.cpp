// SPDX-License-Identifier: MIT
#include "platform/common/module_midi_file_reader.h"

#include <array>
#include <exception>
#include <span>
#include <utility>

#include "modules/midi_file/midi_file_module.h"
#include "platform/common/module_loader.h"

namespace quavix {
namespace {

constexpr const char* ReadName = "QuavixMidiFileRead";

/// Receives the module's data. The module has no exceptions: one is stored here until the module has
/// returned.
class Sink {
  public:
    Sink(MidiFileContent& content, const std::function<bool(double)>& goOn)
        : content_(content), goOn_(goOn) {}

    QuavixMidiFileSink Functions() {
        return {.User = this,
                .Header =
                    [](void* user, const QuavixMidiFileHeader* header) {
                        return Guard(user, [&](Sink& sink) { sink.TakeHeader(*header); });
                    },
                .Track =
                    [](void* user, std::uint32_t track, std::uint64_t) {
                        return Guard(user, [&](Sink& sink) {
                            sink.FinishTrack();
                            sink.content_.Tracks.resize(track + std::size_t{1});
                        });
                    },
                .Events =
                    [](void* user, std::uint32_t, const QuavixMidiFileEvent* events, std::size_t count) {
                        return Guard(user, [&](Sink& sink) {
                            for (const QuavixMidiFileEvent& event : std::span(events, count))
                                sink.track_.push_back(
                                    {event.Tick, event.Value, event.Status, event.Data1, event.Data2});
                        });
                    },
                .Progress =
                    [](void* user, std::uint64_t done, std::uint64_t total) {
                        return Guard(user, [&](Sink& sink) {
                            sink.stopped_ = sink.goOn_ && !sink.goOn_(static_cast<double>(done) /
                                                                      static_cast<double>(total));
                        });
                    },
                .Remark =
                    [](void* user, const char* text) {
                        Guard(user, [&](Sink& sink) { sink.content_.Remarks.emplace_back(text); });
                    }};
    }

    /// Ends the current track. Called at the beginning of each track, and after the last one.
    void FinishTrack() {
        if (!content_.Tracks.empty())
            content_.Tracks.back().assign(track_.begin(), track_.end());
        track_.clear();
    }

    void RethrowWhatWasThrown() const {
        if (thrown_)
            std::rethrow_exception(thrown_);
    }

  private:
    void TakeHeader(const QuavixMidiFileHeader& header) {
        content_.Format = header.Format;
        content_.TicksPerQuarter = header.TicksPerQuarter;
        content_.TicksPerSecondNumerator = header.TicksPerSecondNumerator;
        content_.TicksPerSecondDenominator = header.TicksPerSecondDenominator;
    }

    /// Returns 1 to stop the module.
    template <typename Call>
    static std::int32_t Guard(void* user, Call call) noexcept {
        auto& sink = *static_cast<Sink*>(user);
        try {
            call(sink);
        } catch (...) {
            sink.thrown_ = std::current_exception();
        }
        return sink.stopped_ || sink.thrown_ ? 1 : 0;
    }

    MidiFileContent& content_;
    const std::function<bool(double)>& goOn_;
    /// The current track, copied when its length is known: growing in place would need twice the memory for
    /// very many events.
    std::vector<MidiFileEvent> track_;
    std::exception_ptr thrown_;
    bool stopped_ = false;
};

MidiFileResult ResultOf(std::int32_t result) {
    switch (result) {
        case QUAVIX_MIDI_FILE_OK:
            return MidiFileResult::Read;
        case QUAVIX_MIDI_FILE_TOO_MANY_EVENTS:
            return MidiFileResult::TooManyEvents;
        case QUAVIX_MIDI_FILE_STOPPED:
            return MidiFileResult::Stopped;
        default:
            return MidiFileResult::Unreadable;
    }
}

}  // namespace

ModuleMidiFileReader::ModuleMidiFileReader(std::string fileName) : fileName_(std::move(fileName)) {}

std::string ModuleMidiFileReader::Prepare() {
    std::string problem;
    if (!module_)
        module_ = LoadModule(fileName_, {"MidiFile", QUAVIX_MIDI_FILE_VERSION, {ReadName}}, problem);
    return problem;
}

MidiFileResult ModuleMidiFileReader::Read(std::string_view bytes, const std::function<bool(double)>& goOn,
                                          MidiFileContent& content, std::string& detail) {
    content = {};
    detail = Prepare();
    if (!detail.empty())
        return MidiFileResult::NoReader;
    Sink sink(content, goOn);
    const QuavixMidiFileSink functions = sink.Functions();
    std::array<char, QUAVIX_MIDI_FILE_DETAIL_SIZE> text{};
    const auto read = module_->Function<decltype(QuavixMidiFileRead)>(ReadName);
    const MidiFileResult result = ResultOf(read(reinterpret_cast<const std::uint8_t*>(bytes.data()),
                                                bytes.size(), &functions, text.data(), text.size()));
    if (result == MidiFileResult::Read)
        sink.FinishTrack();
    else
        content = {};
    sink.RethrowWhatWasThrown();
    detail = text.data();
    return result;
}

}  // namespace quavix

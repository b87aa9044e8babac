// SPDX-License-Identifier: MIT
#include "rendering/song_renderer.h"

#include <algorithm>
#include <span>

#include "midi/midi_file_opening.h"
#include "music/lengths.h"
#include "program/program.h"
#include "program/program_parts.h"
#include "rendering/rendered_engine.h"
#include "rendering/rendered_sound.h"
#include "rendering/rendered_speaker.h"
#include "shell/runtime_error.h"
#include "shell/seeded_random_numbers.h"
#include "simulation/simulated_ports.h"

namespace quavix {
namespace {

/// Constant, so that every rendering is the same.
constexpr std::uint32_t RandomSeed = 1;

/// Reports the rendering's progress, and stops the load on request.
class RenderLoadingView : public LoadingView {
  public:
    explicit RenderLoadingView(const std::function<bool(double)>& progress) : progress_(progress) {}

    void ShowHideInfoText(bool) override {}
    void SetInfoText(const std::string&) override {}
    bool Progress(double) override {
        if (!progress_(0))
            throw RenderInterrupted();
        return true;
    }

  private:
    const std::function<bool(double)>& progress_;
};

/// Simulated time that updates the rendering whenever the program runs events.
class RenderPump : public EventPump {
  public:
    RenderPump(SimulatedTime& time, RenderedSound& sound, const std::function<bool(double)>& progress)
        : time_(time), sound_(sound), progress_(progress) {}

    std::uint32_t WaitForInput(std::span<const WaitHandle> handles, std::uint32_t timeoutMs) override {
        const std::uint32_t result = time_.WaitForInput(handles, timeoutMs);
        sound_.CatchUp();
        return result;
    }

    void DoEvents() override {
        time_.DoEvents();
        if (time_.Now() < next_ && ++calls_ < CallsBetween)
            return;
        next_ = time_.Now() + SimulatedTime::CountsPerSecond;
        calls_ = 0;
        const double seconds = static_cast<double>(time_.Now()) / SimulatedTime::CountsPerSecond;
        if (!progress_(TotalSeconds > 0 ? std::min(seconds / TotalSeconds, 1.0) : 0))
            throw RenderInterrupted();
    }

    double TotalSeconds = 0;

  private:
    /// Most calls between two updates, because lines may follow each other without any time.
    static constexpr int CallsBetween = 1000;

    SimulatedTime& time_;
    RenderedSound& sound_;
    const std::function<bool(double)>& progress_;
    std::int64_t next_ = 0;
    int calls_ = 0;
};

void Load(Program& program, const std::string& song) {
    bool loaded = false;
    try {
        loaded = program.Storage.SongReader.ActuallyLoadMusic(song).Loaded;
    } catch (const RuntimeError& error) {
        throw SongError(error.what());
    }
    if (!loaded)
        throw SongError("it was not loaded");
}

double SecondsOfSong(const Program& program) {
    double wholeNotes = 0;
    for (std::int32_t row = 1; row <= program.List.Count(); ++row) {
        std::string mod(program.List.Text(row, Cell::Mod));
        wholeNotes += GetEquivalentLength(program.List.Text(row, Cell::Length), mod);
    }
    return wholeNotes * BeatsPerWholeNote * 60 / program.Fields.Song.BPM;
}

void Play(Program& program, std::int32_t passes) {
    program.Playing.PlaybackEngine.OnRangeEnd = [&program, left = passes]() mutable {
        if (--left == 0)
            program.Playing.PlaybackEngine.StopPlayButton_Click();
    };
    program.Playing.PlaybackEngine.PlayAllButton_Click();
}

void OpenMidi(Program& program, const std::string& file) {
    if (!program.Playing.MidiFilePlayback.Open(file))
        throw SongError("it was not opened");
}

double SecondsOfMidiFile(const Program& program) {
    constexpr double MsPerSecond = 1000;
    return program.Playing.MidiFilePlayback.Length() / MsPerSecond;
}

void PlayMidi(Program& program, RenderPump& pump, std::int32_t passes) {
    MidiFilePlayback& midi = program.Playing.MidiFilePlayback;
    midi.chkLoop = true;
    midi.OnEnd = [&midi, left = passes]() mutable { midi.chkLoop = --left > 0; };
    midi.cmdPlay_Click();
    while (midi.IsPlaying()) {
        // Waits until the next step is due, so that no time follows the last one.
        constexpr std::uint32_t LongerThanAnyStep = 100'000;
        pump.WaitForInput({}, LongerThanAnyStep);
        pump.DoEvents();
    }
}

void LoadEngine(SoundMods& mods, const std::string& programFolder) {
    mods.CheckAvailability(programFolder);
    if (!mods.FmodAvailable)
        throw RenderError("this output needs the sound engine FMODex.dll in the program's folder");
}

/// Makes only the chosen output audible.
void ChooseOutput(Program& program, RenderedEngine& engine, const RenderOptions& options,
                  const std::string& programFolder) {
    SoundMods& mods = program.Outputs.SoundMods;
    switch (options.Sounds) {
        case RenderOptions::Output::Speaker:
            break;
        case RenderOptions::Output::Fmod:
            LoadEngine(mods, programFolder);
            mods.StartEngine(engine.Output());
            engine.Begin(mods.Engine.System());
            mods.Generator.ChangeDSPType(options.Waveform);
            program.Fields.Mods.UseFMOD.Ticked = true;
            break;
        case RenderOptions::Output::Voice:
            LoadEngine(mods, programFolder);
            mods.Singer.Load(engine.Output());
            engine.Begin(mods.Singer.VoiceSystem());
            program.Fields.Mods.UseVoice.Ticked = true;
            program.Fields.Output.MutePCSpeaker = true;
            break;
    }
}

}  // namespace

void SongRenderer::Render(const RenderOptions& options, std::ostream& out) const {
    SimulatedPorts simulated;
    SimulatedTime& time = simulated.Time;
    SoundFile file(out, options.Rate);
    RenderedSpeaker speaker(time, file);
    RenderedEngine engine(Sound, time, file);
    RenderedSound* sound = &engine;
    if (options.Sounds == RenderOptions::Output::Speaker)
        sound = &speaker;
    RenderPump pump(time, *sound, Progress);
    SeededRandomNumbers random(RandomSeed);
    RenderLoadingView loading(Progress);
    ProgramPorts ports = simulated.All();
    ports.Pump = pump;
    ports.Random = random;
    ports.Boxes = Boxes;
    ports.Disk = Disk;
    ports.PcSpeaker = speaker;
    ports.Sound = Sound;
    ports.MidiFiles = MidiFiles;
    ports.Loading = loading;
    ports.ProgramFolder = ports.WinFolder = {};
    ports.LogFile = options.LogFile;
    ports.ToneCodeFile = options.ToneCodeFile;
    ProgramParts parts(ports);
    Program program(parts);
    if (!options.LogFile.empty())
        program.Log.Enable();
    try {
        program.Fields.State.TickFreq = ReadTickFreq(time, program.Log);
        program.Outputs.ToneCode.UseWriteCode = !options.ToneCodeFile.empty();
        const bool isMidiFile = IsMidiFileName(options.Song);
        if (isMidiFile)
            OpenMidi(program, options.Song);
        else
            Load(program, options.Song);
        pump.TotalSeconds =
            (isMidiFile ? SecondsOfMidiFile(program) : SecondsOfSong(program)) * options.Passes;
        file.Expect(pump.TotalSeconds);
        ChooseOutput(program, engine, options, ProgramFolder);
        if (isMidiFile)
            PlayMidi(program, pump, options.Passes);
        else
            Play(program, options.Passes);
    } catch (const RuntimeError& error) {
        // Arithmetic errors and too many events come from the song; every other error from writing a file.
        const std::int32_t number = error.Number();
        if (number == RuntimeError::Overflow || number == RuntimeError::DivisionByZero ||
            number == RuntimeError::SubscriptOutOfRange)
            throw SongError(error.what());
        throw RenderError(error.what());
    }
    sound->Finish();
    file.Finish();
}

}  // namespace quavix

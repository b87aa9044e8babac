// SPDX-License-Identifier: MIT
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <span>

#include <fmt/format.h>

#include "platform/common/console_boxes.h"
#include "platform/common/environment.h"
#include "platform/common/module_midi_file_reader.h"
#include "platform/common/notnormal_fmodex.h"
#include "platform/common/system_ports.h"
#include "rendering/render_target.h"
#include "rendering/rendered_sound.h"
#include "rendering/song_renderer.h"
#include "shell/file_access.h"
#include "shell/program_info.h"
#include "shell/utf8_path.h"

using namespace quavix;

namespace {

enum ExitStatus { Written = 0, BadUsage = 1, SongNotRead = 2, NotWritten = 3 };

volatile std::sig_atomic_t interruptedBy = 0;

void Interrupt(int signal) {
    interruptedBy = signal;
}

void OnSignals(void (*handler)(int)) {
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        std::signal(signal, handler);
}

/// Shows the progress on one line of the terminal.
class ProgressLine {
  public:
    bool Show(double share) {
        const int percent = static_cast<int>(share * 100);
        if (isTerminal_ && percent != shown_)
            fmt::print(stderr, "\rRendering: {} %", shown_ = percent);
        return interruptedBy == 0;
    }
    ~ProgressLine() {
        if (shown_ >= 0)
            fmt::print(stderr, "\r{:20}\r", "");
    }

  private:
    bool isTerminal_ = StandardErrorIsTerminal();
    int shown_ = -1;
};

/// Raises an error if a file would be overwritten while it is read, or written twice.
void CheckNames(const RenderOptions& options) {
    const std::string* names[] = {&options.Song, &options.Out, &options.LogFile, &options.ToneCodeFile};
    for (std::size_t i = 0; i < std::size(names); ++i) {
        for (std::size_t j = 0; j < i; ++j) {
            std::error_code error;
            if (!names[i]->empty() &&
                (*names[i] == *names[j] ||
                 std::filesystem::equivalent(PathOf(*names[i]), PathOf(*names[j]), error)))
                throw RenderError(fmt::format("\"{}\" is named twice", *names[i]));
        }
    }
}

/// Empties the log or the tone code before a rendering.
void StartAnew(const std::string& file) {
    if (!file.empty() && (IsNamedPipe(file) || !std::ofstream(PathOf(file), std::ios::trunc)))
        throw RenderError(fmt::format("\"{}\" can't be written", file));
}

void Render(const RenderOptions& options) {
    const std::unique_ptr<Files> files = MakeFiles();
    ConsoleBoxes boxes(options.Yes);
    NOTNORMALfmodex sound;
    const std::string folder = FolderOfProgram();
    ModuleMidiFileReader midiFiles(FileInFolder(folder, "midifl32.ocx"));
    CheckNames(options);
    StartAnew(options.LogFile);
    StartAnew(options.ToneCodeFile);
    RenderTarget target(options.Out);
    {
        ProgressLine line;
        const SongRenderer renderer{*files,    boxes,  sound,
                                    midiFiles, folder, [&line](double share) { return line.Show(share); }};
        renderer.Render(options, target.Stream());
    }
    if (target.IsPassedOn()) {
        // From here on a signal ends the process, because the reader may block it for ever.
        OnSignals(SIG_DFL);
        if (interruptedBy != 0)
            throw RenderInterrupted();
    }
    target.Commit();
}

}  // namespace

int main(int argc, char** argv) {
    RenderOptions options;
    try {
        options = ParseRenderOptions(std::span<const char* const>(argv, argc).subspan(argc > 0 ? 1 : 0));
    } catch (const std::invalid_argument& error) {
        fmt::print(stderr, "quavix-render: {}\n\n{}", error.what(), RenderUsage);
        return BadUsage;
    }
    if (options.What == RenderOptions::Request::Help) {
        fmt::print("{}", RenderUsage);
        return Written;
    }
    if (options.What == RenderOptions::Request::Version) {
        fmt::print("quavix-render {}\n", program::VersionText);
        return Written;
    }
    OnSignals(Interrupt);
    std::signal(SIGPIPE, SIG_IGN);  // a missing reader becomes a write error
    try {
        Render(options);
        return Written;
    } catch (const RenderInterrupted&) {
        std::signal(interruptedBy, SIG_DFL);
        std::raise(interruptedBy);
    } catch (const SongError& error) {
        fmt::print(stderr, "quavix-render: {}: {}\n", options.Song, error.what());
        return SongNotRead;
    } catch (const std::exception& error) {
        fmt::print(stderr, "quavix-render: {}\n", error.what());
    }
    return NotWritten;
}

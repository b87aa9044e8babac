// SPDX-License-Identifier: MIT
// Measures the window's reaction to user actions on a list of a million rows, from the event to the last
// pixel. A screen is redrawn every 16 ms.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <random>
#include <string_view>
#include <vector>

#include "ui/ui_program.h"
#include "ui/widgets/music_list_view.h"

namespace quavix::bench {
namespace {

using Watch = std::chrono::steady_clock;

constexpr std::int32_t Rows = 1'000'000;
constexpr int Times = 100;
constexpr double TargetMs = 16;

/// Returns the processor time of this thread, which other busy programs don't affect.
double ProcessorMs() {
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Detects that the list has been drawn.
class Painted : public QObject {
  public:
    explicit Painted(QObject& list) { list.installEventFilter(this); }
    bool Happened = false;

  private:
    bool eventFilter(QObject*, QEvent* event) override {
        Happened = Happened || event->type() == QEvent::Paint;
        return false;
    }
};

struct Bench {
    /// Measures only actions with `wanted` in their name.
    explicit Bench(std::string_view wanted) : Wanted(wanted) {
        constexpr const char* Lengths[] = {"Quarter", "Half", "1/8", "1/16"};
        constexpr const char* Notes[] = {"C4", "E4", "F#4", "G4", "A#5"};
        const MusicListReset reset(Program.App.List);
        for (std::int32_t row = 0; row < Rows; ++row)
            Program.App.List.Append(Lengths[row % 4], Notes[row % 5], row % 3 == 0 ? "A3" : "",
                                    row % 11 == 0  ? "Dot"
                                    : row % 7 == 0 ? "Tri"
                                                   : "");
    }

    /// Runs `act` `times` times, each after `prepare`, and prints the time it takes.
    void Measure(const char* name, const std::function<void()>& prepare, const std::function<void()>& act,
                 int times = Times) {
        if (std::string_view(name).find(Wanted) == std::string_view::npos)
            return;
        std::vector<double> ms;
        std::vector<double> processorMs;
        int unpainted = 0;
        for (int i = 0; i < times; ++i) {
            prepare();
            Settle();
            ListPainted.Happened = false;
            const auto start = Watch::now();
            const double processorStart = ProcessorMs();
            act();
            Settle();
            processorMs.push_back(ProcessorMs() - processorStart);
            ms.push_back(std::chrono::duration<double, std::milli>(Watch::now() - start).count());
            unpainted += ListPainted.Happened ? 0 : 1;
            Program.Timeline.Clear();
        }
        std::sort(ms.begin(), ms.end());
        std::sort(processorMs.begin(), processorMs.end());
        std::printf("%-40s %8.2f %8.2f %8.2f %8.2f %8.2f%s%s\n", name, ms[ms.size() / 2],
                    ms[ms.size() * 95 / 100], ms.back(), processorMs[ms.size() / 2], processorMs.back(),
                    processorMs.back() > TargetMs ? "  over the target" : "",
                    unpainted > 0 ? "  (not always drawn)" : "");
    }

    static void Settle() {
        QApplication::sendPostedEvents();
        QApplication::processEvents();
    }

    void Show(std::int32_t row) { Program.App.List.EnsureVisible(row); }
    std::int32_t Anywhere() { return std::uniform_int_distribution(1, Program.App.List.Count())(Random); }
    /// Shows a random row, and selects it.
    std::int32_t SelectAnywhere() {
        const std::int32_t row = Anywhere();
        Show(row);
        Program.App.List.Select(row);
        List.setFocus();
        return row;
    }
    void ClickRow(std::int32_t row, Qt::KeyboardModifiers keys = {}) {
        QTest::mouseClick(List.viewport(), Qt::LeftButton, keys,
                          List.visualRect(List.model()->index(row - 1, 1)).center());
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) { QTest::keyClick(&List, key, modifiers); }
    void ClickPianoKey() {
        auto& piano = Program.Find<QWidget>("PianoKey");
        QTest::mouseClick(&piano, Qt::LeftButton, {}, {piano.width() / 2, piano.height() - 5});
    }
    void Wheel() {
        const QPointF middle = List.viewport()->rect().center();
        QWheelEvent wheel(middle, List.viewport()->mapToGlobal(middle), {}, {0, -120}, Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(List.viewport(), &wheel);
    }

    std::string_view Wanted;
    test::UiProgram Program;
    MusicListView& List = Program.Find<MusicListView>("MainList");
    Painted ListPainted{*List.viewport()};
    std::mt19937 Random{1};
};

void Run(std::string_view wanted) {
    Bench b(wanted);
    MusicList& list = b.Program.App.List;
    const std::function<void()> nothing = [] {};
    const std::function<void()> selectAnywhere = [&] { b.SelectAnywhere(); };
    const std::function<void()> selectAll = [&] {
        b.SelectAnywhere();
        b.List.selectAll();
    };
    std::printf("%d rows, %d times each, in ms; the target is %.0f.\n\n", Rows, Times, TargetMs);
    std::printf("%-40s %26s %17s\n", "", "time", "processor");
    std::printf("%-40s %8s %8s %8s %8s %8s\n", "", "median", "95 %", "worst", "median", "worst");

    b.Measure("scroll with the wheel", nothing, [&] { b.Wheel(); });
    b.Measure("scroll a page down", selectAnywhere, [&] { b.Key(Qt::Key_PageDown); });
    b.Measure("drag the scroll bar anywhere", nothing,
              [&] { b.List.verticalScrollBar()->setSliderPosition(b.Anywhere()); });
    b.Measure("go to the end", selectAnywhere, [&] { b.Key(Qt::Key_End); });
    b.Measure("go to the start", selectAnywhere, [&] { b.Key(Qt::Key_Home); });
    b.Measure("go to the next row", selectAnywhere, [&] { b.Key(Qt::Key_Down); });

    std::int32_t row = 1;
    const std::function<void()> showAnywhere = [&] { b.Show(row = b.Anywhere()); };
    b.Measure("click a row", showAnywhere, [&] { b.ClickRow(row); });
    b.Measure("click a row with Ctrl", showAnywhere, [&] { b.ClickRow(row, Qt::ControlModifier); });
    b.Measure("click a row with Shift", showAnywhere, [&] { b.ClickRow(row, Qt::ShiftModifier); });
    b.Measure("extend the selection to the end", selectAnywhere,
              [&] { b.Key(Qt::Key_End, Qt::ShiftModifier); });
    b.Measure("select all", selectAnywhere, [&] { b.Key(Qt::Key_A, Qt::ControlModifier); });
    b.Measure(
        "click a row where all are selected",
        [&] {
            selectAll();
            b.Show(row = b.Anywhere());
        },
        [&] { b.ClickRow(row); });
    b.Measure(
        "take one out of all with Ctrl",
        [&] {
            selectAll();
            b.Show(row = b.Anywhere());
        },
        [&] { b.ClickRow(row, Qt::ControlModifier); });
    b.Measure("scroll with all selected", selectAll, [&] { b.Wheel(); });

    b.Measure("insert a note with the piano", selectAnywhere, [&] { b.ClickPianoKey(); });
    b.Measure(
        "insert a note near the start",
        [&] {
            b.Show(2);
            list.Select(2);
        },
        [&] { b.ClickPianoKey(); });
    b.Measure("insert a blank line", selectAnywhere, [&] { b.Program.Click("SilentLineButton"); });
    b.Measure("erase the line", selectAnywhere, [&] { b.Program.Click("Command1"); });
    b.Measure(
        "erase near the start",
        [&] {
            b.Show(2);
            list.Select(2);
        },
        [&] { b.Program.Click("Command1"); });
    b.Measure("erase with the Delete key", selectAnywhere, [&] { b.Key(Qt::Key_Delete); });
    b.Measure("clear Note 1", selectAnywhere, [&] { b.Program.Click("ClearNote1Button"); });
    b.Measure("make the line dotted", selectAnywhere, [&] { b.Program.Click("ModDottedCheck"); });
    b.Measure(
        "undo",
        [&] {
            b.SelectAnywhere();
            b.Program.Click("Command1");
        },
        [&] { b.Key(Qt::Key_Z, Qt::ControlModifier); });
    b.Measure(
        "redo",
        [&] {
            b.SelectAnywhere();
            b.Program.Click("Command1");
            b.Key(Qt::Key_Z, Qt::ControlModifier);
        },
        [&] { b.Key(Qt::Key_Y, Qt::ControlModifier); });
    b.Measure(
        "paste a line",
        [&] {
            b.SelectAnywhere();
            b.Key(Qt::Key_C, Qt::ControlModifier);
            b.SelectAnywhere();
        },
        [&] { b.Key(Qt::Key_V, Qt::ControlModifier); });
    b.Measure(
        "erase, then click the row after it",
        [&] {
            row = b.SelectAnywhere();
            b.Program.Click("Command1");
        },
        [&] { b.ClickRow(std::min(row, list.Count())); });

    std::printf("\nWhat handles every row at once:\n");
    constexpr int Few = 5;
    b.Measure(
        "erase all", selectAll, [&] { b.Key(Qt::Key_Delete); }, 1);
    b.Measure(
        "undo that", nothing, [&] { b.Key(Qt::Key_Z, Qt::ControlModifier); }, 1);
    b.Measure(
        "make all lines dotted", selectAll, [&] { b.Program.Click("ModDottedCheck"); }, 1);
    b.Measure(
        "undo that", nothing, [&] { b.Key(Qt::Key_Z, Qt::ControlModifier); }, 1);
    b.Measure(
        "copy all", selectAll, [&] { b.Key(Qt::Key_C, Qt::ControlModifier); }, Few);
}

}  // namespace
}  // namespace quavix::bench

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);  // prints each figure at once
    quavix::bench::Run(argc > 1 ? argv[1] : "");
    return EXIT_SUCCESS;
}

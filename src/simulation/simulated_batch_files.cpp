// SPDX-License-Identifier: MIT
#include "simulation/simulated_batch_files.h"

namespace quavix {

std::error_code SimulatedBatchFiles::Start(const std::string& fileName) {
    timeline_.Record(time_.Now(), "batch " + fileName);
    if (!StartError)
        RunLines(files_.Content(fileName));
    return StartError;
}

void SimulatedBatchFiles::RunLines(const std::string& lines) {
    if (lines.empty())
        return;
    const double nowMs = static_cast<double>(time_.Now()) / SimulatedTime::CountsPerMs;
    time_.At(nowMs + LineMs, [this, lines] {
        const std::size_t end = lines.find('\n');
        const std::string line = lines.substr(0, end);
        if (OnLine && !OnLine(line))
            return;
        timeline_.Record(time_.Now(), "batch line " + line);
        const std::string erase = "erase \"";
        if (line.starts_with(erase))
            files_.Delete(line.substr(erase.size(), line.size() - erase.size() - 1));
        RunLines(end == std::string::npos ? "" : lines.substr(end + 1));
    });
}

}  // namespace quavix

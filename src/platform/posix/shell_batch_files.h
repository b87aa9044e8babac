// SPDX-License-Identifier: MIT
#pragma once

#include <string>

#include "ports/batch_files.h"

namespace quavix {

/// Batch files run by a shell. Controls are registered by this program itself, started as "quavix --register
/// CONTROL".
class ShellBatchFiles : public BatchFiles {
  public:
    /// `program` is the executable of this program.
    explicit ShellBatchFiles(std::string program) : program_(std::move(program)) {}

    std::string RegisterCommand() override;
    std::string Quoted(const std::string& fileName) override;
    std::error_code Start(const std::string& fileName) override;

  private:
    std::string program_;
};

}  // namespace quavix

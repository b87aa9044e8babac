// SPDX-License-Identifier: MIT
#include "shell/whole_text.h"

#include <array>

namespace quavix {

std::string WholeText(Files& files, const std::string& fileName) {
    std::error_code error;
    const auto file = files.OpenForInput(fileName, error);
    if (!file)
        return {};
    std::string text;
    std::array<char, 8192> block{};
    while (const std::size_t read = file->Read(block, error))
        text.append(block.data(), read);
    return error ? std::string() : text;
}

}  // namespace quavix

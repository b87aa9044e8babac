// SPDX-License-Identifier: MIT
#pragma once

#include <functional>

#include "program/program.h"

class QMainWindow;
class QTableView;

namespace quavix {

/// Adds the menus to the main window, and the editing commands to the list as its context menu.
/// `closeProgram` is called when the user wants to leave. `program` must outlive the window.
void AddMainMenu(Program& program, std::function<void()> closeProgram, QMainWindow& window, QTableView& list);

}  // namespace quavix

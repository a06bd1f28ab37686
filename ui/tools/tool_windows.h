#pragma once

#include <vector>

class QWidget;

namespace kelvro {

class ToolWindow;

/// A tool of the Tools menu.
struct ToolEntry {
    const char* control;  ///< object name of the menu item
    const char* window;   ///< class and object name of the window
    ToolWindow* (*create)(QWidget* parent);
};

/// All tools in the order of the menu; "Execute" is the main window's own.
const std::vector<ToolEntry>& ToolWindows();

}  // namespace kelvro

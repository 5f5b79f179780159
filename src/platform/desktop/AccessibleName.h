#pragma once

#include <string>
#include <vector>

namespace quillon {

/// The name under which assistive technology knows a control that shows no caption of its own. `control` is its native
/// window or widget handle.
void SetAccessibleName(void* control, const std::string& name);

/// Makes what a status bar shows readable where the toolkit only draws it. `bar` is its native widget or window handle.
void SetAccessibleStatus(void* bar, const std::string& text);

/// Tells assistive technology that this window is a message that is to be read out. `window` is its native widget or
/// window handle.
void SetAccessibleAlert(void* window);

/// Names the arrows that open a tool bar's drop-down menus, from the left, where they are controls of their own.
void SetAccessibleArrows(void* toolBar, const std::vector<std::string>& names);

/// Names the headers of a list's first columns, which show no text, where they are controls of their own.
void SetAccessibleHeaders(void* list, const std::vector<std::string>& names);

}  // namespace quillon

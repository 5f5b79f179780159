#pragma once

#include <string>
#include <vector>

namespace quillon {

/// Sets the name that assistive technology reads for a control without a caption. `control` is its native window or
/// widget handle.
void SetAccessibleName(void* control, const std::string& name);

/// Makes a status bar's text readable for assistive technology where the toolkit only draws it. `bar` is its native
/// widget or window handle.
void SetAccessibleStatus(void* bar, const std::string& text);

/// Tells assistive technology to read this window out as a message. `window` is its native widget or window handle.
void SetAccessibleAlert(void* window);

/// Names the arrows that open a tool bar's drop-down menus, from the left, where they are separate controls.
void SetAccessibleArrows(void* toolBar, const std::vector<std::string>& names);

/// Names the headers of a list's first columns, which show no text, where they are separate controls.
void SetAccessibleHeaders(void* list, const std::vector<std::string>& names);

}  // namespace quillon

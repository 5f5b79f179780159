#pragma once

namespace quillon {

/// Draws the arrows of a tool bar's drop-down menus as plain triangles in the text's colour. GTK would take them from
/// the icon theme, and reading that takes longer than everything else that the bar needs when the program starts.
/// `toolBar` is the bar's native widget. Windows: does nothing.
void DrawToolBarArrows(void* toolBar);

}  // namespace quillon

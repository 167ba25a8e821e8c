// Printing the picture of a window as it stands on the screen, on a printer the user chooses
// (the print buttons of the layer dialog and of the summary).
#pragma once

class QWidget;

namespace karvane::dialogs {

// The picture fills at most `share` of the page's width and height, in its own proportions.
void PrintWindowImage(QWidget* window, double share = 1.0);

} // namespace karvane::dialogs

// The pictures of the program drawn with QPainter: the tool bar's icons (one per command
// value, in one consistent style), the cursors of the view windows by name, and the
// program's own icon.
#pragma once

#include <QCursor>
#include <QIcon>
#include <QPixmap>
#include <string>

namespace karvane::shell {

// The icon of a tool bar command value (0 to 31).
QIcon ToolIcon(int value);
// The picture of a command value at a size, for the icon and for the badge of a cursor.
QPixmap ToolPicture(int value, int size, bool disabled = false);
// The cursor of a name of the tool table ("Magnify", "Hand", ...); the cross for no name.
QCursor ViewCursor(const std::string& name);
// The program's icon.
QIcon ProgramIcon();

} // namespace karvane::shell

// Texts at the Qt edge. The core keeps the bytes of names and notes as the network files hold
// them (the Windows-1252 code page); paths are the file system's bytes (UTF-8 here). Both turn
// into QString only where a widget shows them, and back where a widget gives them.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace karvane::shell {

// Network text (names, notes, values shown in the views) to and from QString. Characters with
// no place in the code page become "?".
QString FromCp1252(std::string_view bytes);
std::string ToCp1252(const QString& text);

// File paths to and from QString.
QString FromPath(const std::string& path);
std::string ToPath(const QString& path);

// A message of the core: UTF-8 when it is valid UTF-8 with some character beyond ASCII (a path
// inside the text), else network text.
QString FromMessage(std::string_view text);

} // namespace karvane::shell

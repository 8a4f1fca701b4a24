#pragma once

#include <string>
#include <vector>

namespace tamarind::platform {

/// Whether a person can answer on standard input.
[[nodiscard]] bool StandardInputIsTerminal();
/// Whether a person reads standard error as it is written, on a terminal that can write over a line.
[[nodiscard]] bool StandardErrorIsTerminal();

/// Whether text may be coloured: the variable NO_COLOR is missing or empty.
[[nodiscard]] bool WantsColours();

/// The program's arguments as UTF-8, without its own name, whatever code page main() was given them in. Also makes the
/// console show UTF-8.
[[nodiscard]] std::vector<std::string> ProgramArguments(int count, char** arguments);

/// From now on the first Ctrl-C only asks to stop; the second one ends the program as usual.
void CatchInterrupt();
/// Whether Ctrl-C was pressed since.
[[nodiscard]] bool IsInterrupted();

/// The text of the command line behind the program's name; on systems that hand over separate arguments, those with
/// blanks between them, as a program's path.
[[nodiscard]] std::string CommandLineText(int count, char** arguments);

} // namespace tamarind::platform

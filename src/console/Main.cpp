// tamblewickc: makes lists and changes presets from a prompt or a script.

#include "console/Commands.h"
#include "console/Interrupt.h"
#include "console/Output.h"
#include "winlib/DllSearch.h"

int wmain(int count, wchar_t** values) {
    WinLib::LimitDllSearch();
    const Console::Utf8Console console;
    Console::CatchInterrupts();
    return static_cast<int>(Console::RunProgram(Console::Arguments(values + 1, values + count)));
}

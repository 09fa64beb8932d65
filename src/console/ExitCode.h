// What the program returns to the script or the task that started it.
#pragma once

namespace Console {

enum class ExitCode : int {
    Complete = 0,
    Failed = 1,       // the folder cannot be listed, the file cannot be imported
    Different = 1,    // the lists that are compared differ
    WrongUsage = 2,   // wrong arguments, or no such preset
    Incomplete = 3,   // folders, files or presets could not be read; or a list has no summary
    NotWritten = 4,   // the list, the settings or the standard output could not be written
    Cancelled = 130,  // by Ctrl+C; nothing was written
};

}  // namespace Console

#include "FakeWin.h"

#include "Internal.h"

namespace FakeWin {

void Reset() {
    Internal::ResetWindows();
    Internal::ResetShell();
    Internal::ResetMutexes();
    Internal::ResetReadFiles();
    Internal::ResetHashes();
    Internal::ResetText();
    Internal::ResetTime();
    Internal::ResetRegistry();
    Internal::ResetConsole();
    Internal::ResetFiles();
    Internal::ResetCalls();
}

std::string LeftOpen() {
    return Internal::OpenFilesText() + Internal::OpenKeysText() + Internal::OpenTextsText() +
           Internal::OpenIconsText() + Internal::OpenMutexesText() + Internal::OpenReadFilesText() +
           Internal::OpenHashesText();
}

}  // namespace FakeWin

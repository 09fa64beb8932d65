#include "winlib/Windows.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, LPWSTR, int) {
    return 0;
}

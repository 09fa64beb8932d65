// Copies the texts of a menu's entries to the buffers of callers.
#pragma once

#include <string>

#include "winlib/Windows.h"

// Copy text with its terminator into a buffer of size characters, at least 1; the narrow one in the system's
// code page. A text that is too long is cut between two characters, which still is a success. If there is not
// even room for the first one, the buffer holds the empty text and the result is an error.
HRESULT CopyText(const std::wstring& text, wchar_t* buffer, UINT size);
HRESULT CopyText(const std::wstring& text, char* buffer, UINT size);

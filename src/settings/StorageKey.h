// The registry key, below HKEY_CURRENT_USER, of all that is stored. Each preset is a subkey of it.
#pragma once

inline constexpr const wchar_t* StorageKey = L"Software\\Tamblewick";

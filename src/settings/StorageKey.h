// The registry key of all settings, below HKEY_CURRENT_USER. Each preset is a subkey of it.
#pragma once

inline constexpr const wchar_t* StorageKey = L"Software\\Tamblewick";

// Shared by the program and its handler module: the class of the handler, in registry form, and the name of
// its keys below ContextMenuHandlers.
#pragma once

inline constexpr wchar_t ContextMenuClassId[] = L"{5E2C81D4-3B7F-4A16-9C0E-7F41D2A96B3C}";
inline constexpr wchar_t ContextMenuName[] = L"Tamblewick";

#include "contextmenu/FileData.h"

#include <shlobj.h>

#include <cstring>

HRESULT FileData::QueryInterface(REFIID iid, void** object) {
    if (!IsEqualIID(iid, IID_IUnknown) && !IsEqualIID(iid, IID_IDataObject)) {
        *object = nullptr;
        return E_NOINTERFACE;
    }
    *object = static_cast<IDataObject*>(this);
    return S_OK;
}

HRESULT FileData::QueryGetData(FORMATETC* format) {
    return format->cfFormat == CF_HDROP && !paths_.empty() ? S_OK : DV_E_FORMATETC;
}

HRESULT FileData::GetData(FORMATETC* format, STGMEDIUM* medium) {
    if (QueryGetData(format) != S_OK)
        return DV_E_FORMATETC;
    std::wstring names;
    for (const std::wstring& path : paths_)
        names += path + L'\0';
    names += L'\0';
    DROPFILES header = {};
    header.pFiles = sizeof(header);
    header.fWide = TRUE;
    const size_t size = names.size() * sizeof(wchar_t);
    *medium = {};
    medium->tymed = TYMED_HGLOBAL;
    medium->hGlobal = GlobalAlloc(GMEM_MOVEABLE, sizeof(header) + size);
    char* const place = static_cast<char*>(GlobalLock(medium->hGlobal));
    std::memcpy(place, &header, sizeof(header));
    std::memcpy(place + sizeof(header), names.data(), size);
    GlobalUnlock(medium->hGlobal);
    return S_OK;
}

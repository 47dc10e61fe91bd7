#include "windows/Dialog.h"

namespace windows
{

INT_PTR showEmptyDialog(HWND owner, DWORD extendedStyle, DLGPROC procedure, void* instance)
{
    struct
    {
        DLGTEMPLATE header;
        WORD menu;
        WORD windowClass;
        WORD title;
    } empty{};
    empty.header.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | DS_MODALFRAME;
    empty.header.dwExtendedStyle = extendedStyle;
    return DialogBoxIndirectParamW(GetModuleHandleW(nullptr), &empty.header, owner, procedure,
                                   reinterpret_cast<LPARAM>(instance));
}

}  // namespace windows

#include "windows/Dialog.h"

namespace windows
{

namespace
{

struct EmptyTemplate
{
    explicit EmptyTemplate(DWORD extendedStyle)
    {
        header.style = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | DS_MODALFRAME;
        header.dwExtendedStyle = extendedStyle;
    }

    DLGTEMPLATE header{};
    WORD menu = 0;
    WORD windowClass = 0;
    WORD title = 0;
};

}  // namespace

INT_PTR showEmptyDialog(HWND owner, DWORD extendedStyle, DLGPROC procedure, void* instance)
{
    const EmptyTemplate empty(extendedStyle);
    return DialogBoxIndirectParamW(GetModuleHandleW(nullptr), &empty.header, owner, procedure,
                                   reinterpret_cast<LPARAM>(instance));
}

HWND createEmptyDialog(HWND owner, DWORD extendedStyle, DLGPROC procedure, void* instance)
{
    const EmptyTemplate empty(extendedStyle);
    return CreateDialogIndirectParamW(GetModuleHandleW(nullptr), &empty.header, owner, procedure,
                                      reinterpret_cast<LPARAM>(instance));
}

}  // namespace windows

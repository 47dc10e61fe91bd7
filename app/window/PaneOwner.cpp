#include "app/window/PaneOwner.h"

#include <utility>

namespace window
{

bool PaneOwner::isPane(HWND form)
{
    return (GetWindowLongPtrW(form, GWL_STYLE) & WS_CHILD) != 0;
}

void PaneOwner::look(HWND form)
{
    const HWND parent = GetAncestor(form, GA_PARENT);
    DWORD id = 0;
    if (parent != nullptr && parent != GetDesktopWindow())
        GetWindowThreadProcessId(parent, &id);
    if (id == id_)
        return;
    forget();
    id_ = id;
    if (id != 0)
        process_ = OpenProcess(SYNCHRONIZE, FALSE, id);
}

bool PaneOwner::hasEnded() const
{
    constexpr DWORD moment = 3000;  // milliseconds
    return process_ != nullptr && WaitForSingleObject(process_, moment) == WAIT_OBJECT_0;
}

void PaneOwner::forget()
{
    id_ = 0;
    if (process_ != nullptr)
        CloseHandle(std::exchange(process_, nullptr));
}

}  // namespace window

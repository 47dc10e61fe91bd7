#include "app/window/AccessKeys.h"

#include "form/ControlTable.h"

#include <vector>

namespace window
{

AccessKeys::AccessKeys()
{
    std::vector<ACCEL> entries;
    for (const form::ControlRow& each : form::controlTable)
        if (each.accessKey != 0)
            entries.push_back(
                {FALT | FVIRTKEY, static_cast<WORD>(each.accessKey), static_cast<WORD>(each.id)});
    table_ = CreateAcceleratorTableW(entries.data(), static_cast<int>(entries.size()));
}

bool AccessKeys::translate(HWND window, MSG& message) const
{
    return TranslateAcceleratorW(window, table_, &message) != 0;
}

}  // namespace window

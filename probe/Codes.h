// COM's codes in English, whatever the language of Windows: reports are read elsewhere.
#pragma once

#include <windows.h>

#include <string>

namespace probe
{

/// "0x80020006: no such name".
std::string codeText(HRESULT result);

}  // namespace probe

#include "standin/Registration.h"

#include "system/RuntimeError.h"
#include "windows/Text.h"

#include <array>
#include <objbase.h>

namespace standin
{

using sys::ErrorNumber;
using sys::RuntimeError;
using windows::describe;

const CLSID standinClass = {
    0x7C1B5A64, 0x2D0E, 0x4B53, {0x9E, 0x0B, 0x5D, 0x6F, 0x3A, 0x1C, 0x8E, 0x27}};

namespace
{

constexpr const wchar_t* classText = L"{7C1B5A64-2D0E-4B53-9E0B-5D6F3A1C8E27}";
constexpr const wchar_t* nameKey = L"Software\\Classes\\femap.model";

std::wstring classKey()
{
    return std::wstring(L"Software\\Classes\\CLSID\\") + classText;
}

bool isWine()
{
    const HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
    return ntdll != nullptr && GetProcAddress(ntdll, "wine_get_version") != nullptr;
}

// Writes the default value of the key.
void write(HKEY root, const std::wstring& key, const std::wstring& value)
{
    const LSTATUS result =
        RegSetKeyValueW(root, key.c_str(), nullptr, REG_SZ, value.c_str(),
                        static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    if (result != ERROR_SUCCESS)
        throw RuntimeError(ErrorNumber::FileError,
                           "femap.model cannot be registered: " +
                               describe(HRESULT_FROM_WIN32(static_cast<DWORD>(result))));
}

std::wstring ownPath()
{
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD size = static_cast<DWORD>(path.size());
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), size);
        if (length < size) {
            path.resize(length);
            return path;
        }
        path.resize(2 * path.size());
    }
}

}  // namespace

Registration::Registration() : root_(isWine() ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER)
{
    CLSID registered{};
    if (SUCCEEDED(CLSIDFromProgID(L"femap.model", &registered)) &&
        !IsEqualCLSID(registered, standinClass))
        throw RuntimeError(ErrorNumber::InvalidCall,
                           "A FEMAP is installed on this machine; the stand-in does not take its "
                           "place");
}

bool Registration::isThere() const
{
    CLSID registered{};
    return SUCCEEDED(CLSIDFromProgID(L"femap.model", &registered));
}

void Registration::add() const
{
    write(root_, std::wstring(nameKey) + L"\\CLSID", classText);
    write(root_, classKey() + L"\\LocalServer32", L'"' + ownPath() + L'"');
    write(root_, classKey() + L"\\ProgID", L"femap.model");
}

void Registration::remove() const
{
    RegDeleteTreeW(root_, nameKey);
    RegDeleteTreeW(root_, classKey().c_str());
}

}  // namespace standin

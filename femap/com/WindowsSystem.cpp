#include "femap/com/WindowsSystem.h"

#include "femap/com/Text.h"

#include <windows.h>

#include <stdexcept>

namespace femap::com
{

namespace
{

// The code page that the user's programs write their text files in.
class AnsiCodePage : public logging::CodePage
{
public:
    bool encode(std::string_view text, std::string& bytes) const override
    {
        if (text.empty())
            return true;
        const std::wstring wide = toWide(text);
        const int size = static_cast<int>(wide.size());
        BOOL lost = FALSE;
        // Without best fit: a letter that only looks alike is a wrong letter.
        const DWORD flags = WC_NO_BEST_FIT_CHARS;
        const int length =
            WideCharToMultiByte(CP_ACP, flags, wide.data(), size, nullptr, 0, substitute, nullptr);
        const std::size_t before = bytes.size();
        bytes.resize(before + static_cast<std::size_t>(length));
        WideCharToMultiByte(CP_ACP, flags, wide.data(), size, bytes.data() + before, length,
                            substitute, &lost);
        return lost == FALSE;
    }

    std::string decode(std::string_view bytes) const override
    {
        if (bytes.empty())
            return {};
        const int size = static_cast<int>(bytes.size());
        const int length = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0);
        std::wstring wide(static_cast<std::size_t>(length), L'\0');
        MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, wide.data(), length);
        return fromWide(wide);
    }

private:
    static constexpr const char* substitute = "?";
};

logging::LocalTime localTime()
{
    SYSTEMTIME now{};
    GetLocalTime(&now);
    return {now.wYear,   now.wMonth,  now.wDay,         now.wHour,
            now.wMinute, now.wSecond, now.wMilliseconds};
}

std::string environmentVariable(const std::string& name)
{
    const std::wstring wideName = toWide(name);
    const DWORD size = GetEnvironmentVariableW(wideName.c_str(), nullptr, 0);
    if (size == 0)
        return {};
    std::wstring value(size, L'\0');
    value.resize(GetEnvironmentVariableW(wideName.c_str(), value.data(), size));
    return fromWide(value);
}

}  // namespace

logging::System windowsSystem()
{
    static const AnsiCodePage codePage;
    logging::System standard = logging::standardSystem();
    return {standard.files,      codePage,     localTime, standard.monotonicSeconds,
            environmentVariable, standard.wait};
}

void takeLibrariesFromSystemOnly()
{
    if (SetDefaultDllDirectories(LOAD_LIBRARY_SEARCH_SYSTEM32) == FALSE)
        throw std::runtime_error("Windows does not let the program choose where its libraries are");
}

bool errorsShowColours()
{
    const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
    DWORD mode = 0;
    return GetConsoleMode(errors, &mode) != FALSE &&
           SetConsoleMode(errors, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != FALSE;
}

}  // namespace femap::com

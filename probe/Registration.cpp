#include "probe/Registration.h"

#include "probe/Codes.h"
#include "probe/Machine.h"
#include "windows/Text.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <objbase.h>

namespace probe
{

namespace
{

using windows::fromWide;

constexpr std::wstring_view programName = L"femap.model";
constexpr std::string_view believedClass = "{A01DD4C4-A8F0-11D4-9FAC-00105A0A86C2}";

struct View
{
    std::string_view name;
    HKEY root;
    REGSAM width;
};

// clang-format off
const View views[] = {
    {"HKCU, 64-bit view", HKEY_CURRENT_USER,  KEY_WOW64_64KEY},
    {"HKCU, 32-bit view", HKEY_CURRENT_USER,  KEY_WOW64_32KEY},
    {"HKLM, 64-bit view", HKEY_LOCAL_MACHINE, KEY_WOW64_64KEY},
    {"HKLM, 32-bit view", HKEY_LOCAL_MACHINE, KEY_WOW64_32KEY},
};
// clang-format on

// The default value of a key below Software\Classes; empty when there is none.
std::string defaultOf(const View& view, const std::wstring& key)
{
    HKEY opened = nullptr;
    const std::wstring path = L"Software\\Classes\\" + key;
    if (RegOpenKeyExW(view.root, path.c_str(), 0, KEY_QUERY_VALUE | view.width, &opened) !=
        ERROR_SUCCESS)
        return {};
    std::array<wchar_t, 2048> text{};
    DWORD size = sizeof text - sizeof(wchar_t);
    const LSTATUS result = RegQueryValueExW(opened, nullptr, nullptr, nullptr,
                                            reinterpret_cast<BYTE*>(text.data()), &size);
    RegCloseKey(opened);
    return result == ERROR_SUCCESS ? fromWide(text.data()) : std::string();
}

bool isSame(std::string_view left, std::string_view right)
{
    return std::ranges::equal(left, right, [](unsigned char a, unsigned char b) {
        return std::toupper(a) == std::toupper(b);
    });
}

void probeView(Session& session, const View& view)
{
    Report& report = session.report;
    const std::string id = defaultOf(view, std::wstring(programName) + L"\\CLSID");
    report.begin("femap.model, " + std::string(view.name));
    if (id.empty()) {
        report.end(Verdict::Found, "not there");
        return;
    }
    report.end(isSame(id, believedClass) ? Verdict::Same : Verdict::Differs,
               "CLSID " + id +
                   (isSame(id, believedClass) ? "" : "; believed: " + std::string(believedClass)));
    const std::wstring classKey = L"CLSID\\" + windows::toWide(id);
    const std::string server = defaultOf(view, classKey + L"\\LocalServer32");
    const std::string library = defaultOf(view, classKey + L"\\InprocServer32");
    report.line("  its server", server.empty() ? Verdict::Differs : Verdict::Same,
                server.empty() ? "no program; believed: one" : report.name(server));
    if (!library.empty())
        report.line("  its library", Verdict::Differs,
                    report.name(library) + "; believed: none, for FEMAP is a program");
    for (const wchar_t* const key : {L"ProgID", L"VersionIndependentProgID", L"TypeLib"})
        if (const std::string text = defaultOf(view, classKey + L'\\' + key); !text.empty())
            report.line("  its " + fromWide(key), Verdict::Found, text);
}

std::string displayNameOf(IMoniker& moniker, IBindCtx& context)
{
    LPOLESTR name = nullptr;
    if (FAILED(moniker.GetDisplayName(&context, nullptr, &name)))
        return {};
    std::string text = fromWide(name);
    CoTaskMemFree(name);
    return text;
}

// Of other programs nothing is told: their names may be those of documents.
bool isOfFemap(const std::string& name, const std::string& id)
{
    std::string upper(name);
    std::ranges::transform(upper, upper.begin(),
                           [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return upper.find("FEMAP") != std::string::npos ||
           (!id.empty() && upper.find(id) != std::string::npos);
}

void probeRunningObjects(Session& session, const std::string& id)
{
    Report& report = session.report;
    report.begin("table of running objects");
    IRunningObjectTable* table = nullptr;
    IEnumMoniker* each = nullptr;
    IBindCtx* context = nullptr;
    const HRESULT result = GetRunningObjectTable(0, &table);
    if (FAILED(result) || FAILED(table->EnumRunning(&each)) || FAILED(CreateBindCtx(0, &context))) {
        report.end(Verdict::Refused, codeText(result));
        return;
    }
    std::vector<std::string> own;
    int others = 0;
    IMoniker* moniker = nullptr;
    while (each->Next(1, &moniker, nullptr) == S_OK) {
        const std::string name = displayNameOf(*moniker, *context);
        if (isOfFemap(name, id))
            own.push_back(name);
        else
            ++others;
        moniker->Release();
    }
    context->Release();
    each->Release();
    table->Release();
    report.end(Verdict::Found, std::to_string(own.size()) + " of FEMAP, " + std::to_string(others) +
                                   " of other programs");
    for (const std::string& name : own)
        report.line("  entry", Verdict::Found, name.starts_with("!{") ? name : report.name(name));
}

std::string textOf(const CLSID& id)
{
    std::array<wchar_t, 64> text{};
    return StringFromGUID2(id, text.data(), static_cast<int>(text.size())) > 0
               ? fromWide(text.data())
               : std::string();
}

}  // namespace

void probeRegistration(Session& session)
{
    session.report.section("A2 How FEMAP is registered");
    for (const View& view : views)
        probeView(session, view);
    CLSID id{};
    const HRESULT result = CLSIDFromProgID(programName.data(), &id);
    session.report.line("CLSIDFromProgID of femap.model",
                        SUCCEEDED(result) ? Verdict::Same : Verdict::Absent,
                        SUCCEEDED(result) ? textOf(id) : codeText(result));
    probeRunningObjects(session, SUCCEEDED(result) ? textOf(id) : std::string());
}

Object attach(Session& session)
{
    CLSID id{};
    IUnknown* running = nullptr;
    session.report.begin("GetActiveObject");
    HRESULT result = CLSIDFromProgID(programName.data(), &id);
    if (SUCCEEDED(result))
        result = GetActiveObject(id, nullptr, &running);
    IDispatch* application = nullptr;
    if (SUCCEEDED(result)) {
        result = running->QueryInterface(IID_PPV_ARGS(&application));
        running->Release();
    }
    session.report.end(SUCCEEDED(result) ? Verdict::Same : Verdict::Refused,
                       SUCCEEDED(result) ? "FEMAP is found" : codeText(result));
    return {session.connection, application, "Imodel"};
}

Object start(Session& session)
{
    CLSID id{};
    IDispatch* application = nullptr;
    session.report.begin("CoCreateInstance");
    HRESULT result = CLSIDFromProgID(programName.data(), &id);
    if (SUCCEEDED(result))
        result = CoCreateInstance(id, nullptr, CLSCTX_LOCAL_SERVER, IID_PPV_ARGS(&application));
    session.report.end(SUCCEEDED(result) ? Verdict::Same : Verdict::Refused,
                       SUCCEEDED(result) ? "FEMAP is started" : codeText(result));
    session.processes = femapProcesses();
    return {session.connection, application, "Imodel"};
}

void watchEnd(Session& session)
{
    constexpr DWORD longest = 15'000;  // milliseconds
    session.report.section("G The end of a FEMAP that was started");
    session.report.begin("FEMAP, let go of");
    const ULONGLONG begin = GetTickCount64();
    while (!femapProcesses().empty() && GetTickCount64() - begin < longest)
        Sleep(100);
    const std::string text =
        femapProcesses().empty()
            ? "it ends by itself"
            : "it still runs after " + std::to_string(longest / 1000) + " seconds; close it";
    session.report.end(Verdict::Found, text);
    session.report.answer(Question::EndOfOwnFemap, text);
}

}  // namespace probe

// FEMAP's event messages: a window is registered as a pane, and what comes to it is told.
#include "probe/Codes.h"
#include "probe/Dialogs.h"
#include "windows/Text.h"

#include <array>
#include <optional>

namespace probe
{

namespace
{

constexpr UINT firstRegistered = 0xC000;  // the numbers of messages that have a name
constexpr int floating = 0;               // location of a pane
constexpr int ofMainWindow = 0;           // its neighbour

struct EventWord
{
    int code;
    std::string_view word;
};

// clang-format off
constexpr EventWord eventWords[] = {
    {1,  "initialised"},     {2,  "a model was opened"}, {3,  "a model was closed"},
    {4,  "FEMAP ends"},      {5,  "a command was run"},  {6,  "a program file began"},
    {7,  "a program file ended"}, {8, "drawing began"},  {9,  "drawing ended"},
    {10, "an analysis ended"},    {11, "results were read"}, {12, "another model is active"},
    {13, "the selector changed"}, {14, "a saved set changed"}, {15, "a model is closing"},
    {16, "a model is left"},      {17, "a file was opened"},   {18, "a file was imported"},
};
// clang-format on

std::string eventText(WPARAM code)
{
    for (const EventWord& each : eventWords)
        if (static_cast<WPARAM>(each.code) == code)
            return std::to_string(each.code) + ", " + std::string(each.word);
    return std::to_string(code) + ", not known";
}

std::string howItCame()
{
    const DWORD flags = InSendMessageEx(nullptr);
    if (flags == ISMEX_NOSEND)
        return "posted";
    return (flags & ISMEX_NOTIFY) != 0     ? "sent as a notification"
           : (flags & ISMEX_CALLBACK) != 0 ? "sent with a callback"
                                           : "sent";
}

/// The window that FEMAP takes in as a pane. Nothing may be thrown through Windows' own code.
class EventWindow
{
public:
    EventWindow(Session& session, const Object& application)
        : session_(session), application_(application)
    {
        WNDCLASSW kind{};
        kind.lpfnWndProc = procedure;
        kind.hInstance = GetModuleHandleW(nullptr);
        kind.lpszClassName = L"VelmarProbe";
        RegisterClassW(&kind);
        window_ = CreateWindowW(L"VelmarProbe", L"velmar-study --probe", WS_OVERLAPPEDWINDOW,
                                CW_USEDEFAULT, CW_USEDEFAULT, 320, 120, nullptr, nullptr,
                                kind.hInstance, nullptr);
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        ShowWindow(window_, SW_SHOWNOACTIVATE);
    }
    ~EventWindow()
    {
        SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
        DestroyWindow(window_);
    }
    EventWindow(const EventWindow&) = delete;
    EventWindow& operator=(const EventWindow&) = delete;

    /// As FEMAP takes it.
    int handle() const { return static_cast<int>(reinterpret_cast<INT_PTR>(window_)); }

    /// Lets messages come. Raises FemapGone when one found FEMAP gone.
    void listen(int seconds)
    {
        constexpr DWORD look = 100;  // milliseconds
        for (const ULONGLONG end = GetTickCount64() + 1000ULL * static_cast<unsigned>(seconds);
             GetTickCount64() < end && !gone_;) {
            MsgWaitForMultipleObjects(0, nullptr, FALSE, look, QS_ALLINPUT);
            MSG message{};
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
                TranslateMessage(&message);
                DispatchMessageW(&message);
            }
        }
        if (gone_)
            throw FemapGone(*gone_);
    }
    int count() const { return count_; }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l)
    {
        auto* const self = reinterpret_cast<EventWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (self != nullptr && message >= firstRegistered)
            self->take(message, w, l);
        return DefWindowProcW(window, message, w, l);
    }

    void take(UINT message, WPARAM w, LPARAM l)
    {
        try {
            if (message == event_)
                tellEvent(w, l);
            else
                tellOther(message, w, l);
        }
        catch (const FemapGone& gone) {
            gone_ = gone.what();
        }
        catch (const std::exception& error) {
            gone_ = error.what();  // the report cannot be written
        }
    }

    void tellEvent(WPARAM w, LPARAM l)
    {
        ++count_;
        const std::string how = howItCame();
        const Answer inside = application_.call("EventLParam");
        const std::string text =
            how + ", lParam " + std::to_string(l) + "; inside, EventLParam is " +
            (inside.isDone() ? session_.shown(inside.value) : session_.reason(inside));
        session_.report.line("event " + eventText(w), Verdict::Found, text);
        session_.report.answer(Question::EventMessage, "event " + std::to_string(w) + ": " + text);
    }

    void tellOther(UINT message, WPARAM w, LPARAM l)
    {
        std::array<wchar_t, 200> name{};
        const int length =
            GetClipboardFormatNameW(message, name.data(), static_cast<int>(name.size()));
        session_.report.line(
            "another message, " +
                windows::fromWide({name.data(), static_cast<std::size_t>(length)}),
            Verdict::Found,
            howItCame() + ", wParam " + std::to_string(w) + ", lParam " + std::to_string(l));
    }

    Session& session_;
    const Object& application_;
    const UINT event_ = RegisterWindowMessageW(L"FE_EVENT_MESSAGE");
    HWND window_ = nullptr;
    int count_ = 0;
    std::optional<std::string> gone_;
};

std::vector<Argument> paneArguments(const EventWindow& window, bool registers)
{
    return list(registers, window.handle(), window.handle(), false, false, floating, ofMainWindow);
}

}  // namespace

void probeEvents(Session& session, const Object& application, int seconds, std::ostream& said)
{
    session.report.section("E Event messages");
    EventWindow window(session, application);
    const Answer registered = session.read(application, "feAppRegisterAddInPane", statusAnd(),
                                           paneArguments(window, true));
    if (!registered.isOk())
        return;
    said << "For " << seconds << " seconds: open, close and switch models in FEMAP.\n"
         << std::flush;
    window.listen(seconds);
    if (window.count() == 0)
        session.report.line("event messages", Verdict::NotTried,
                            "none came in " + std::to_string(seconds) + " seconds");
    session.read(application, "feAppRegisterAddInPane", statusAnd(), paneArguments(window, false));
}

}  // namespace probe

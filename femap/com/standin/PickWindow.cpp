#include "femap/com/standin/PickWindow.h"

#include "femap/com/Text.h"
#include "femap/com/standin/Server.h"

#include <windows.h>

#include <algorithm>

namespace femap::com::standin
{

namespace
{

constexpr int listID = 100;
constexpr const wchar_t* className = L"femap-standin.pick";

// In units of a screen of 96 dots per inch.
constexpr int width = 420;
constexpr int height = 480;
constexpr int margin = 10;
constexpr int buttonWidth = 90;
constexpr int buttonHeight = 28;

template <class Entity>
std::string titleIn(const embedded::Table<Entity>& table, int id)
{
    const Entity* const found = table.find(id);
    return found == nullptr ? std::string() : found->title;
}

std::string titleOf(Server& server, EntityType type, int id)
{
    embedded::Model& model = server.host.openModel();
    switch (type) {
    case EntityType::Property:
        return titleIn(model.properties, id);
    case EntityType::Material:
        return titleIn(model.materials, id);
    case EntityType::Function:
        return titleIn(model.functions, id);
    case EntityType::LoadSet:
        return titleIn(model.loadSets, id);
    case EntityType::OutputSet:
        return titleIn(model.outputSets, id);
    case EntityType::OutputVector: {
        const embedded::OutputSet* const set = activeOutputSet(model);
        return set == nullptr ? std::string() : titleIn(set->vectors, id);
    }
    case EntityType::LoadDefinition:
        if (const embedded::LoadSet* const set = activeLoadSet(model))
            for (const embedded::LoadDefinition& one : set->definitions)
                if (one.id == id)
                    return one.title;
        return {};
    default:
        return {};
    }
}

enum class Answer
{
    None,
    Ok,
    Cancel,
};

LRESULT CALLBACK windowProcedure(HWND window, UINT message, WPARAM w, LPARAM l)
{
    auto* const answer = reinterpret_cast<Answer*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    const bool isButton = message == WM_COMMAND && (LOWORD(w) == IDOK || LOWORD(w) == IDCANCEL);
    const bool isDoubleClick =
        message == WM_COMMAND && LOWORD(w) == listID && HIWORD(w) == LBN_DBLCLK;
    if (answer != nullptr && (isButton || isDoubleClick || message == WM_CLOSE)) {
        const bool isOk = isDoubleClick || (isButton && LOWORD(w) == IDOK);
        *answer = isOk ? Answer::Ok : Answer::Cancel;
        return 0;
    }
    return DefWindowProcW(window, message, w, l);
}

// A window for as long as this lives.
class PickWindow
{
public:
    PickWindow(const std::string& title, bool onlyOne)
    {
        WNDCLASSW windowClass{};
        windowClass.lpfnWndProc = windowProcedure;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1);
        windowClass.lpszClassName = className;
        RegisterClassW(&windowClass);  // fails harmlessly when it is there already
        window_ = CreateWindowExW(WS_EX_DLGMODALFRAME | WS_EX_TOPMOST, className,
                                  toWide(title).c_str(), WS_CAPTION | WS_SYSMENU | WS_POPUP,
                                  scaled(80), scaled(80), scaled(width), scaled(height), nullptr,
                                  nullptr, windowClass.hInstance, nullptr);
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&answer_));
        RECT inside{};
        GetClientRect(window_, &inside);
        const int top = static_cast<int>(inside.bottom) - scaled(margin + buttonHeight);
        const int right = static_cast<int>(inside.right) - scaled(margin);
        const DWORD several = onlyOne ? 0 : LBS_EXTENDEDSEL;
        list_ = add(L"LISTBOX", L"", WS_VSCROLL | WS_BORDER | LBS_NOTIFY | several, listID,
                    {scaled(margin), scaled(margin), right, top - scaled(margin)});
        add(L"BUTTON", L"OK", BS_DEFPUSHBUTTON, IDOK,
            {right - scaled(2 * buttonWidth + margin), top, right - scaled(buttonWidth + margin),
             top + scaled(buttonHeight)});
        add(L"BUTTON", L"Cancel", BS_PUSHBUTTON, IDCANCEL,
            {right - scaled(buttonWidth), top, right, top + scaled(buttonHeight)});
    }
    ~PickWindow()
    {
        DestroyWindow(window_);
        DeleteObject(font_);
    }
    PickWindow(const PickWindow&) = delete;
    PickWindow& operator=(const PickWindow&) = delete;

    void addItem(const std::string& text)
    {
        SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(toWide(text).c_str()));
    }

    // The places of the items that were picked; false when the dialog was cancelled.
    bool show(std::vector<std::size_t>& picked)
    {
        ShowWindow(window_, SW_SHOW);
        SetForegroundWindow(window_);
        SetFocus(list_);
        MSG message;
        while (answer_ == Answer::None && GetMessageW(&message, nullptr, 0, 0) > 0)
            if (!IsDialogMessageW(window_, &message)) {
                TranslateMessage(&message);
                DispatchMessageW(&message);
            }
        if (answer_ == Answer::None)  // the server is to end
            PostQuitMessage(0);
        const LRESULT count = SendMessageW(list_, LB_GETCOUNT, 0, 0);
        for (LRESULT i = 0; i < count; ++i)
            if (SendMessageW(list_, LB_GETSEL, static_cast<WPARAM>(i), 0) > 0)
                picked.push_back(static_cast<std::size_t>(i));
        return answer_ == Answer::Ok && !picked.empty();
    }

private:
    static int scaled(int length)
    {
        const HDC screen = GetDC(nullptr);
        const int dots = GetDeviceCaps(screen, LOGPIXELSY);
        ReleaseDC(nullptr, screen);
        return MulDiv(length, dots, 96);
    }

    HWND add(const wchar_t* kind, const wchar_t* text, DWORD style, int id, const RECT& place)
    {
        const HWND control =
            CreateWindowExW(0, kind, text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, place.left,
                            place.top, place.right - place.left, place.bottom - place.top, window_,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
        return control;
    }

    HFONT font_ = CreateFontW(-scaled(12), 0, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, DEFAULT_CHARSET,
                              OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                              DEFAULT_PITCH, L"Tahoma");
    HWND window_ = nullptr;
    HWND list_ = nullptr;
    Answer answer_ = Answer::None;
};

}  // namespace

std::function<Selection(EntityType type, const std::string& title, bool onlyOne,
                        const std::vector<int>& available)>
pickWindow(Server& server)
{
    return [&server](EntityType type, const std::string& title, bool onlyOne,
                     const std::vector<int>& available) {
        PickWindow window(title, onlyOne);
        for (const int id : available) {
            const std::string name = titleOf(server, type, id);
            window.addItem(std::to_string(id) + (name.empty() ? "" : ".." + name));
        }
        std::vector<std::size_t> picked;
        if (!window.show(picked))
            return Selection{ReturnCode::Cancel, {}};
        Selection result;
        for (const std::size_t place : picked)
            result.ids.push_back(available[place]);
        return result;
    };
}

}  // namespace femap::com::standin

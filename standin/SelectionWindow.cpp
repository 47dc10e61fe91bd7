#include "standin/SelectionWindow.h"

#include "standin/Server.h"
#include "system/RuntimeError.h"
#include "windows/Dialog.h"
#include "windows/Font.h"
#include "windows/Text.h"

#include <windows.h>

#include <algorithm>
#include <utility>

namespace standin
{

using femap::embedded::activeLoadSet;
using femap::embedded::activeOutputSet;
namespace neutral = femap::neutral;
using femap::ReturnCode;
using windows::fromWide;
using windows::toWide;

namespace
{

// Control numbers; OK and Cancel have Windows' own.
constexpr int labelID = 100;
constexpr int idsID = 101;
constexpr int listID = 102;
constexpr int countID = 103;

// In units of a screen of 96 dots per inch.
constexpr int startWidth = 420;
constexpr int startHeight = 480;
constexpr int smallestWidth = 340;
constexpr int smallestHeight = 240;
constexpr int margin = 10;
constexpr int gap = 7;
constexpr int labelWidth = 160;
constexpr int labelHeight = 16;
constexpr int fieldHeight = 23;
constexpr int buttonWidth = 90;
constexpr int buttonHeight = 25;
constexpr int titleStop = 40;  // where the titles begin, in quarters of a letter's width

template <class Entity>
std::string titleIn(const neutral::Table<Entity>& table, int id)
{
    const Entity* const found = table.find(id);
    return found == nullptr ? std::string() : found->title;
}

std::string titleOf(Server& server, EntityType type, int id)
{
    neutral::Model& model = server.host.openModel();
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
        const neutral::OutputSet* const set = activeOutputSet(model);
        return set == nullptr ? std::string() : titleIn(set->vectors, id);
    }
    case EntityType::LoadDefinition:
        if (const neutral::LoadSet* const set = activeLoadSet(model))
            for (const neutral::LoadDefinition& one : set->definitions)
                if (one.id == id)
                    return one.title;
        return {};
    default:
        return {};
    }
}

int screenDots()
{
    const HDC screen = GetDC(nullptr);
    const int dots = GetDeviceCaps(screen, LOGPIXELSY);
    ReleaseDC(nullptr, screen);
    return dots;
}

// Like FEMAP's dialog: typed IDs mark entities in the list, and the marked ones are taken.
class SelectionWindow
{
public:
    SelectionWindow(const std::string& title, bool onlyOne, const std::vector<int>& ids,
                    const std::function<std::string(int id)>& titleOf)
        : title_(title), onlyOne_(onlyOne), ids_(ids), titleOf_(titleOf)
    {}

    // The IDs that were selected; none when the dialog was cancelled.
    std::vector<int> show()
    {
        windows::showEmptyDialog(nullptr, WS_EX_TOPMOST | WS_EX_CONTROLPARENT, procedure, this);
        return selected_;
    }

private:
    static INT_PTR CALLBACK procedure(HWND window, UINT message, WPARAM w, LPARAM l)
    {
        if (message == WM_INITDIALOG) {
            SetWindowLongPtrW(window, DWLP_USER, l);
            reinterpret_cast<SelectionWindow*>(l)->initialise(window);
            return FALSE;  // the focus is set
        }
        auto* const self = reinterpret_cast<SelectionWindow*>(GetWindowLongPtrW(window, DWLP_USER));
        return self == nullptr ? FALSE : self->handle(message, w, l);
    }

    INT_PTR handle(UINT message, WPARAM w, LPARAM l)
    {
        switch (message) {
        case WM_COMMAND:
            command(LOWORD(w), HIWORD(w));
            return TRUE;
        case WM_VKEYTOITEM:
            return keyInList(LOWORD(w), HIWORD(w));
        case WM_SIZE:
            layOut();
            return TRUE;
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO*>(l)->ptMinTrackSize = {scaled(smallestWidth),
                                                                scaled(smallestHeight)};
            return TRUE;
        default:
            return FALSE;
        }
    }

    void command(int id, int notification)
    {
        const bool isDoubleClick = id == listID && notification == LBN_DBLCLK;
        if (id == IDOK || isDoubleClick)
            accept();
        else if (id == IDCANCEL)
            EndDialog(window_, IDCANCEL);
        else if (id == idsID && notification == EN_CHANGE)
            markTyped();
        else if (id == listID && notification == LBN_SELCHANGE)
            showCount();
    }

    void accept()
    {
        for (const std::size_t index : marked())
            selected_.push_back(ids_[index]);
        if (!selected_.empty())
            EndDialog(window_, IDOK);
    }

    // Ctrl+A marks all, the space bar marks an item or takes its mark away.
    INT_PTR keyInList(WORD key, WORD caret)
    {
        constexpr INT_PTR handled = -2;
        constexpr INT_PTR leftToList = -1;
        if (onlyOne_)
            return leftToList;
        if (key == 'A' && GetKeyState(VK_CONTROL) < 0)
            send(LB_SETSEL, TRUE, -1);
        else if (key == VK_SPACE)
            send(LB_SETSEL, send(LB_GETSEL, caret) > 0 ? FALSE : TRUE, caret);
        else
            return leftToList;
        showCount();
        return handled;
    }

    void initialise(HWND window)
    {
        window_ = window;
        SetWindowTextW(window_, toWide(title_).c_str());
        add(L"STATIC", L"IDs, such as 1-5 7 or all:", SS_LEFT, labelID);
        add(L"EDIT", L"", WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL, idsID);
        const DWORD several = onlyOne_ ? 0 : LBS_EXTENDEDSEL | LBS_WANTKEYBOARDINPUT;
        list_ = add(L"LISTBOX", L"",
                    WS_TABSTOP | WS_VSCROLL | WS_BORDER | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT |
                        LBS_USETABSTOPS | several,
                    listID);
        add(L"STATIC", L"", SS_LEFT | SS_NOPREFIX | SS_ENDELLIPSIS, countID);
        add(L"BUTTON", L"OK", WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK);
        add(L"BUTTON", L"Cancel", WS_TABSTOP, IDCANCEL);
        fill();
        SetWindowPos(window_, nullptr, scaled(80), scaled(80), scaled(startWidth),
                     scaled(startHeight), SWP_NOZORDER);
        layOut();
        showCount();
        // Shown first: the keyboard cannot go to a window that is not there yet.
        ShowWindow(window_, SW_SHOW);
        SetForegroundWindow(window_);
        SetFocus(list_);
    }

    void fill()
    {
        send(WM_SETREDRAW, FALSE);
        const int stop = titleStop;
        send(LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&stop));
        send(LB_INITSTORAGE, ids_.size());
        for (const int id : ids_) {
            const std::wstring text = std::to_wstring(id) + L'\t' + toWide(titleOf_(id));
            send(LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        }
        send(WM_SETREDRAW, TRUE);
    }

    void layOut()
    {
        RECT inside{};
        GetClientRect(window_, &inside);
        const int right = static_cast<int>(inside.right) - scaled(margin);
        const int buttons = static_cast<int>(inside.bottom) - scaled(margin) - scaled(buttonHeight);
        const int left = scaled(margin);
        const int field = left + scaled(labelWidth);
        const int listTop = left + scaled(fieldHeight) + scaled(gap);
        const int ok = right - 2 * scaled(buttonWidth) - scaled(gap);
        setBounds(labelID, left, left + (scaled(fieldHeight) - scaled(labelHeight)) / 2,
                  field - left, scaled(labelHeight));
        setBounds(idsID, field, left, right - field, scaled(fieldHeight));
        setBounds(listID, left, listTop, right - left, buttons - scaled(gap) - listTop);
        setBounds(countID, left, buttons + (scaled(buttonHeight) - scaled(labelHeight)) / 2,
                  ok - scaled(gap) - left, scaled(labelHeight));
        setBounds(IDOK, ok, buttons, scaled(buttonWidth), scaled(buttonHeight));
        setBounds(IDCANCEL, right - scaled(buttonWidth), buttons, scaled(buttonWidth),
                  scaled(buttonHeight));
    }

    // Marks the entities whose IDs were typed, and no others.
    void markTyped()
    {
        wchar_t typed[1000]{};
        GetDlgItemTextW(window_, idsID, typed, 1000);
        std::vector<int> ids;
        std::string problem;
        try {
            ids = parseSelection(fromWide(typed), ids_).ids;
        }
        catch (const sys::RuntimeError& error) {
            problem = error.description();
        }
        send(WM_SETREDRAW, FALSE);
        unmarkAll();
        if (onlyOne_ && !ids.empty())
            send(LB_SETCURSEL, indexOf(ids.front()));
        for (std::size_t i = 0; !onlyOne_ && i < ids.size();) {
            const std::size_t first = indexOf(ids[i]);
            std::size_t last = first;
            while (++i < ids.size() && last + 1 < ids_.size() && ids_[last + 1] == ids[i])
                ++last;
            send(LB_SELITEMRANGEEX, first, static_cast<LPARAM>(last));
        }
        if (!ids.empty())
            send(LB_SETTOPINDEX, indexOf(ids.front()));
        send(WM_SETREDRAW, TRUE);
        InvalidateRect(list_, nullptr, TRUE);
        showCount();
        if (!problem.empty())
            SetDlgItemTextW(window_, countID, toWide(problem).c_str());
    }

    void unmarkAll()
    {
        if (onlyOne_)
            send(LB_SETCURSEL, static_cast<WPARAM>(-1));
        else
            send(LB_SETSEL, FALSE, -1);
    }

    std::size_t indexOf(int id) const
    {
        return static_cast<std::size_t>(std::lower_bound(ids_.begin(), ids_.end(), id) -
                                        ids_.begin());
    }

    // Indices of the marked rows of the list, ascending.
    std::vector<std::size_t> marked() const
    {
        if (onlyOne_) {
            const LRESULT index = send(LB_GETCURSEL);
            return index < 0 ? std::vector<std::size_t>()
                             : std::vector<std::size_t>{static_cast<std::size_t>(index)};
        }
        std::vector<int> indices(static_cast<std::size_t>(send(LB_GETSELCOUNT)));
        send(LB_GETSELITEMS, indices.size(), reinterpret_cast<LPARAM>(indices.data()));
        return {indices.begin(), indices.end()};
    }

    void showCount()
    {
        const LRESULT count = onlyOne_ ? (send(LB_GETCURSEL) >= 0 ? 1 : 0) : send(LB_GETSELCOUNT);
        const std::wstring text =
            std::to_wstring(count) + L" of " + std::to_wstring(ids_.size()) + L" marked";
        SetDlgItemTextW(window_, countID, text.c_str());
        EnableWindow(GetDlgItem(window_, IDOK), count > 0 ? TRUE : FALSE);
    }

    LRESULT send(UINT message, WPARAM w = 0, LPARAM l = 0) const
    {
        return SendMessageW(list_, message, w, l);
    }

    int scaled(int length) const { return MulDiv(length, dots_, USER_DEFAULT_SCREEN_DPI); }

    HWND add(const wchar_t* kind, const wchar_t* text, DWORD style, int id)
    {
        const HWND control = CreateWindowExW(
            0, kind, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, window_,
            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_.handle()), FALSE);
        return control;
    }

    void setBounds(int id, int left, int top, int width, int height)
    {
        MoveWindow(GetDlgItem(window_, id), left, top, width, height, TRUE);
    }

    const std::string& title_;
    const bool onlyOne_;
    const std::vector<int>& ids_;
    const std::function<std::string(int id)>& titleOf_;
    const int dots_ = screenDots();
    const windows::Font font_{static_cast<UINT>(dots_)};
    HWND window_ = nullptr;
    HWND list_ = nullptr;
    std::vector<int> selected_;
};

}  // namespace

std::function<Selection(EntityType type, const std::string& title, bool onlyOne,
                        const std::vector<int>& available)>
selectionWindow(Server& server)
{
    return [&server](EntityType type, const std::string& title, bool onlyOne,
                     const std::vector<int>& available) {
        const std::function<std::string(int)> name = [&](int id) {
            return titleOf(server, type, id);
        };
        SelectionWindow window(title, onlyOne, available, name);
        std::vector<int> ids = window.show();
        if (ids.empty())
            return Selection{ReturnCode::Cancel, {}};
        return Selection{ReturnCode::Ok, std::move(ids)};
    };
}

}  // namespace standin

#include "FormDriver.h"

#include "ListViews.h"
#include "RemoteHeap.h"
#include "RemoteMemory.h"
#include "app/window/PropertyListWindow.h"
#include "form/ControlTable.h"
#include "standin/StartedStandin.h"
#include "windows/Text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>
#include <thread>

namespace driver
{

using window::PropertyListWindow;
using windows::fromWide;
using windows::toWide;

namespace
{

struct Search
{
    std::function<bool(HWND)> matches;
    HWND found = nullptr;
};

BOOL CALLBACK look(HWND window, LPARAM parameter)
{
    Search& search = *reinterpret_cast<Search*>(parameter);
    if (!search.matches(window))
        return TRUE;
    search.found = window;
    return FALSE;
}

}  // namespace

HWND visibleWindow(DWORD process, const std::wstring& className)
{
    Search search{[&](HWND window) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        wchar_t name[64]{};
        GetClassNameW(window, name, 64);
        return owner == process && className == name && IsWindowVisible(window) != FALSE;
    }};
    EnumWindows(look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// A GetWindowText of another process's control gives nothing; the message does.
std::string textOf(HWND window)
{
    std::wstring text(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)) + 1,
                      L'\0');
    text.resize(static_cast<std::size_t>(
        SendMessageW(window, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()))));
    return fromWide(text);
}

HWND controlOf(HWND form, std::string_view name)
{
    const auto* const row = std::ranges::find(form::controlTable, name, &form::ControlRow::name);
    if (row == std::end(form::controlTable))
        throw std::logic_error("No control is named " + std::string(name));
    Search search{[&](HWND window) { return GetDlgCtrlID(window) == row->id; }};
    EnumChildWindows(form, look, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

bool waitUntil(const std::function<bool()>& condition, std::chrono::milliseconds limit)
{
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return true;
}

std::filesystem::path programPath(std::string_view name)
{
    return std::filesystem::absolute(std::filesystem::path(PROGRAM_FOLDER) / name);
}

Process::Process(const std::filesystem::path& program, const std::wstring& rest,
                 const std::filesystem::path& folder)
{
    std::wstring line = L'"' + program.wstring() + L"\" " + rest;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                       folder.c_str(), &start, &info_) == FALSE)
        throw std::runtime_error("Could not start " + program.string());
    comtest::endWithThisProgram(info_.hProcess);
}

Process::~Process()
{
    kill();
    CloseHandle(info_.hThread);
    CloseHandle(info_.hProcess);
}

bool Process::isRunning() const
{
    return WaitForSingleObject(info_.hProcess, 0) == WAIT_TIMEOUT;
}

DWORD Process::exitCode()
{
    constexpr DWORD limit = 10000;  // milliseconds
    EXPECT_EQ(WaitForSingleObject(info_.hProcess, limit), WAIT_OBJECT_0) << "the program runs on";
    DWORD code = 0;
    GetExitCodeProcess(info_.hProcess, &code);
    return code;
}

void Process::kill()
{
    if (isRunning())
        TerminateProcess(info_.hProcess, 1);
    WaitForSingleObject(info_.hProcess, INFINITE);
}

// A program that just begins cannot be told yet.
void Process::quit()
{
    EXPECT_TRUE(waitUntil([this] {
        PostThreadMessageW(info_.dwThreadId, WM_QUIT, 0, 0);
        return !isRunning();
    }));
}

HWND FormDriver::window()
{
    if (window_ == nullptr) {
        waitUntil([&] {
            window_ = visibleWindow(process_.id(), L"VelmarFemapInterface");
            return window_ != nullptr || !process_.isRunning();
        });
        if (window_ == nullptr)
            throw std::runtime_error("The form did not appear");
        settle();
    }
    return window_;
}

bool FormDriver::isOpen()
{
    return visibleWindow(process_.id(), L"VelmarFemapInterface") != nullptr;
}

RECT FormDriver::placeOf(std::string_view name)
{
    RECT place{};
    GetWindowRect(control(name), &place);
    MapWindowPoints(nullptr, window(), reinterpret_cast<POINT*>(&place), 2);
    return place;
}

std::string FormDriver::text(std::string_view name)
{
    return textOf(control(name));
}

void FormDriver::choose(std::string_view box, const std::string& item)
{
    settle();  // what a procedure that is just ending shows would undo the choice
    const HWND combo = control(box);
    const std::wstring wide = toWide(item);
    const LRESULT place = SendMessageW(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                       reinterpret_cast<LPARAM>(wide.c_str()));
    ASSERT_GE(place, 0) << item;
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(place), 0);
    for (const int notification : {CBN_SELCHANGE, CBN_SELENDOK})
        SendMessageW(GetParent(combo), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(combo), notification),
                     reinterpret_cast<LPARAM>(combo));
    settle();
}

void FormDriver::type(std::string_view box, const std::wstring& text)
{
    const HWND combo = control(box);
    const HWND edit = FindWindowExW(combo, nullptr, L"Edit", nullptr);
    SendMessageW(edit, EM_SETSEL, 0, -1);
    for (const wchar_t letter : text)
        SendMessageW(edit, WM_CHAR, static_cast<WPARAM>(letter), 0);
    PostMessageW(edit, WM_KEYDOWN, VK_RETURN, 0);
    settle();
}

void FormDriver::setText(std::string_view name, const std::wstring& text)
{
    SendMessageW(control(name), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void FormDriver::press(std::string_view button)
{
    PostMessageW(control(button), BM_CLICK, 0, 0);
}

void FormDriver::key(std::string_view name, WPARAM key)
{
    PostMessageW(control(name), WM_KEYDOWN, key, 0);
    settle();
}

// A message that is sent overtakes those that were posted. So one is posted that leaves a trace.
void FormDriver::settle(std::chrono::milliseconds limit)
{
    const HWND edit = control("CommandLine");
    PostMessageW(edit, EM_SETLIMITTEXT, ++settled_, 0);
    EXPECT_TRUE(waitUntil(
        [&] {
            return IsWindow(edit) == FALSE ||
                   SendMessageW(edit, EM_GETLIMITTEXT, 0, 0) == static_cast<LRESULT>(settled_);
        },
        limit));
    EXPECT_NE(RemoteHeap(process_.handle()).isSound(), false) << "the program damaged its heap";
}

void FormDriver::sendEvent(WPARAM code)
{
    PostMessageA(window(), RegisterWindowMessageA("FE_EVENT_MESSAGE"), code, 0);
}

LRESULT FormDriver::askList(HWND list, UINT message, WPARAM item, LVITEMW info, std::wstring* text)
{
    constexpr std::size_t textAt = 512;
    constexpr std::size_t size = 16384;
    RemoteMemory there(process_.handle(), size);
    info.cchTextMax = 4000;
    info.pszText = reinterpret_cast<wchar_t*>(there.address(textAt));
    there.write(info);
    const LRESULT answer = SendMessageW(list, message, item, there.parameter());
    if (text != nullptr)
        *text = there.text(textAt, static_cast<std::size_t>(answer));
    return answer;
}

int FormDriver::rowCount(std::string_view grid)
{
    return static_cast<int>(SendMessageW(control(grid), LVM_GETITEMCOUNT, 0, 0));
}

std::string FormDriver::cell(std::string_view grid, int item, int column)
{
    LVITEMW info{};
    info.iSubItem = column;
    std::wstring text;
    askList(control(grid), LVM_GETITEMTEXTW, static_cast<WPARAM>(item), info, &text);
    return fromWide(text);
}

std::vector<std::string> FormDriver::rows(std::string_view grid, int columns)
{
    std::vector<std::string> result;
    const int count = rowCount(grid);
    for (int item = 0; item < count; ++item) {
        std::string row = cell(grid, item, 0);
        if (row.empty() && count == 1)
            break;
        for (int column = 1; column < columns; ++column)
            row += "|" + cell(grid, item, column);
        result.push_back(row);
    }
    return result;
}

void FormDriver::markRow(std::string_view grid, int item, bool marked)
{
    LVITEMW info{};
    info.state = marked ? LVIS_SELECTED : 0;
    info.stateMask = LVIS_SELECTED;
    askList(control(grid), LVM_SETITEMSTATE, static_cast<WPARAM>(item), info);
}

POINT FormDriver::rowPlace(std::string_view grid, int item)
{
    return rowPlaceIn(control(grid), item);
}

void FormDriver::click(std::string_view grid, int item)
{
    SendMessageW(control(grid), LVM_ENSUREVISIBLE, static_cast<WPARAM>(item), FALSE);
    postClick(control(grid), rowPlace(grid, item));
    settle();
}

void FormDriver::selectRows(std::string_view grid, int first, int last)
{
    click(grid, first);
    for (int item = first + 1; item <= last; ++item)
        markRow(grid, item, true);
    settle();
}

std::vector<int> FormDriver::selectedRows(std::string_view grid)
{
    std::vector<int> result;
    int item = -1;
    while ((item = static_cast<int>(SendMessageW(control(grid), LVM_GETNEXTITEM,
                                                 static_cast<WPARAM>(item), LVNI_SELECTED))) >= 0)
        result.push_back(item);
    return result;
}

HWND FormDriver::focus()
{
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(window(), nullptr), &info);
    return info.hwndFocus;
}

bool FormDriver::hasFocus(std::string_view name)
{
    const HWND wanted = control(name);
    const HWND focused = focus();
    return focused == wanted || (focused != nullptr && GetParent(focused) == wanted);
}

bool FormDriver::isDialogOpen()
{
    return visibleWindow(process_.id(), L"#32770") != nullptr;
}

HWND FormDriver::dialog()
{
    if (!waitUntil([&] { return isDialogOpen(); }))
        throw std::runtime_error("The dialog did not appear");
    return visibleWindow(process_.id(), L"#32770");
}

std::string FormDriver::heading()
{
    return textOf(GetDlgItem(dialog(), PropertyListWindow::idHeading));
}

HWND FormDriver::list()
{
    return GetDlgItem(dialog(), PropertyListWindow::idList);
}

std::vector<std::string> FormDriver::offered()
{
    const HWND shown = list();
    std::vector<std::string> items;
    const auto count = static_cast<int>(SendMessageW(shown, LVM_GETITEMCOUNT, 0, 0));
    for (int item = 0; item < count; ++item) {
        std::wstring text;
        askList(shown, LVM_GETITEMTEXTW, static_cast<WPARAM>(item), {}, &text);
        items.push_back(fromWide(text));
    }
    return items;
}

void FormDriver::tick(int item)
{
    const HWND shown = list();
    SendMessageW(shown, LVM_ENSUREVISIBLE, static_cast<WPARAM>(item), FALSE);
    const bool before = isTicked(shown, item);
    postClick(shown, rowPlaceIn(shown, item));
    EXPECT_TRUE(waitUntil([&] { return isTicked(shown, item) != before; }));
}

void FormDriver::add(const std::vector<std::string>& items)
{
    const std::vector<std::string> all = offered();
    for (const std::string& item : items) {
        const auto place = std::ranges::find(all, item);
        ASSERT_NE(place, all.end()) << item;
        tick(static_cast<int>(place - all.begin()));
    }
    pressInDialog(PropertyListWindow::idAdd);
}

void FormDriver::pressInDialog(int id)
{
    const HWND shown = dialog();
    PostMessageW(GetDlgItem(shown, id), BM_CLICK, 0, 0);
    const bool ends = id == PropertyListWindow::idAdd || id == PropertyListWindow::idCancel;
    if (!ends)
        return;
    EXPECT_TRUE(waitUntil([&] { return IsWindow(shown) == FALSE; }));
    EXPECT_TRUE(waitUntil([&] { return isDialogOpen() || IsWindowEnabled(window()) != FALSE; }));
    settle();
}

}  // namespace driver

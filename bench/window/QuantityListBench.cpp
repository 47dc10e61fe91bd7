// The processor time that this process, which shows the list of quantities on the screen, takes to
// open it with very many results, to tick all, to find one, and to take what is ticked. Prints a
// table in Markdown.

#include "app/window/PropertyListWindow.h"
#include "fake/FakeConnector.h"
#include "fake/FormFixture.h"
#include "windows/Text.h"

#include <windows.h>

#include <algorithm>
#include <commctrl.h>
#include <cstdint>
#include <functional>
#include <iomanip>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

namespace bench
{
namespace
{

using selection::frmPropertyList;
using windows::toWide;
using Texts = std::vector<std::string>;

constexpr int results = 100'000;
constexpr int rounds = 10;  // Wine counts processor time in steps of 10 ms
constexpr double mostSeconds = 0.5;

// Of this process, user's and system's.
double processorSeconds()
{
    FILETIME ignored{};
    FILETIME system{};
    FILETIME user{};
    GetProcessTimes(GetCurrentProcess(), &ignored, &ignored, &system, &user);
    const auto ticks = [](const FILETIME& time) {
        return static_cast<double>((static_cast<std::uint64_t>(time.dwHighDateTime) << 32) |
                                   time.dwLowDateTime);
    };
    return (ticks(system) + ticks(user)) / 1e7;
}

// Adds up the time of each step, round by round.
class Stopwatch
{
public:
    void start() { since_ = processorSeconds(); }
    /// Returns for how long since the start or the last call.
    void addTo(double& seconds)
    {
        const double now = processorSeconds();
        seconds += now - since_;
        since_ = now;
    }

private:
    double since_ = 0;
};

Texts textsOfResults()
{
    Texts texts;
    for (int i = 1; i <= results; ++i)
        texts.push_back(std::to_string(results + i) + " - Plate Top VonMises Stress " +
                        std::to_string(i));
    return texts;
}

// What is typed to find the last one.
std::string lastResult()
{
    return std::to_string(2 * results);
}

// Runs once, as soon as the window that opens takes messages.
std::function<void()> whenOpen;

void CALLBACK act(HWND, UINT, UINT_PTR timer, DWORD)
{
    KillTimer(nullptr, timer);
    whenOpen();
}

void actWhenOpen(std::function<void()> what)
{
    whenOpen = std::move(what);
    SetTimer(nullptr, 0, 1, act);
}

void draw(HWND window)
{
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

struct Times
{
    double open = 0;
    double tickAll = 0;
    double find = 0;
    double add = 0;
};

// The dialog of the form, with results to choose from.
class QuantityList
{
public:
    void measure(const Texts& texts, Times& times)
    {
        dialog_.GetPropertyList("Output", "");
        dialog_.lstProperties.items.clear();
        for (const std::string& text : texts)
            dialog_.lstProperties.items.push_back({text});
        actWhenOpen([&] { choose(times); });
        watch_.start();
        shown_.showModal(dialog_);
        watch_.addTo(times.add);
        if (dialog_.chosenEntries().size() != texts.size())
            throw std::runtime_error("Not all results were chosen");
    }

private:
    void choose(Times& times)
    {
        const HWND window = FindWindowW(L"#32770", toWide(dialog_.Caption).c_str());
        const HWND list = GetDlgItem(window, window::PropertyListWindow::idList);
        draw(window);
        watch_.addTo(times.open);

        holdControl(true);
        SendMessageW(list, WM_KEYDOWN, 'A', 0);
        holdControl(false);
        draw(window);
        watch_.addTo(times.tickAll);

        for (const char letter : lastResult())
            SendMessageW(list, WM_CHAR, static_cast<WPARAM>(letter), 0);
        draw(window);
        watch_.addTo(times.find);

        const bool isFound = ListView_GetNextItem(list, -1, LVNI_FOCUSED) == results - 1;
        SendMessageW(GetDlgItem(window, isFound ? window::PropertyListWindow::idAdd
                                                : window::PropertyListWindow::idCancel),
                     BM_CLICK, 0, 0);
    }

    static void holdControl(bool isDown)
    {
        BYTE keys[256]{};
        keys[VK_CONTROL] = isDown ? 0x80 : 0;
        SetKeyboardState(keys);
    }

    fake::QueuedDialogs dialogs_;
    femap::embedded::Host femap_{dialogs_};
    fake::FakeConnector connector_{femap_};
    window::PropertyListWindow shown_{[] { return HWND{}; }};
    frmPropertyList dialog_{connector_, shown_};
    Stopwatch watch_;
};

// A window with nothing but Windows' own list view, which asks for the same texts.
class PlainList
{
public:
    explicit PlainList(const Texts& texts)
    {
        for (const std::string& text : texts)
            lines_.push_back(toWide(text));
        window_ = CreateWindowExW(0, L"#32770", L"Results", WS_OVERLAPPEDWINDOW, CW_USEDEFAULT,
                                  CW_USEDEFAULT, 600, 400, nullptr, nullptr, nullptr, nullptr);
        SetWindowSubclass(window_, procedure, 1, reinterpret_cast<DWORD_PTR>(this));
        list_ = CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"",
                                WS_CHILD | WS_VISIBLE | LVS_REPORT | LVS_OWNERDATA, 0, 0, 580, 350,
                                window_, nullptr, nullptr, nullptr);
        LVCOLUMNW column{};
        column.mask = LVCF_WIDTH;
        column.cx = 500;
        SendMessageW(list_, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
        ListView_SetItemCountEx(list_, results, 0);
        ShowWindow(window_, SW_SHOW);
        draw(window_);
    }
    ~PlainList() { DestroyWindow(window_); }
    PlainList(const PlainList&) = delete;
    PlainList& operator=(const PlainList&) = delete;

    void drawAgain()
    {
        InvalidateRect(list_, nullptr, FALSE);
        draw(window_);
    }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam,
                                      UINT_PTR, DWORD_PTR self)
    {
        if (message != WM_NOTIFY ||
            reinterpret_cast<const NMHDR*>(lParam)->code != LVN_GETDISPINFOW)
            return DefSubclassProc(window, message, wParam, lParam);
        LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(lParam)->item;
        if ((item.mask & LVIF_TEXT) != 0)
            item.pszText = reinterpret_cast<PlainList*>(self)
                               ->lines_[static_cast<std::size_t>(item.iItem)]
                               .data();
        return 0;
    }

    std::vector<std::wstring> lines_;
    HWND window_ = nullptr;
    HWND list_ = nullptr;
};

// The number of the first text that has the other one, whatever the case of letters.
int lineWith(const Texts& texts, const std::wstring& sought)
{
    const auto has = [&](const std::string& text) {
        std::wstring line = toWide(text);
        CharLowerBuffW(line.data(), static_cast<DWORD>(line.size()));
        return line.find(sought) != std::wstring::npos;
    };
    return static_cast<int>(std::ranges::find_if(texts, has) - texts.begin());
}

void measurePlain(const Texts& texts, Times& times)
{
    Stopwatch watch;
    watch.start();
    PlainList list(texts);
    watch.addTo(times.open);
    list.drawAgain();
    watch.addTo(times.tickAll);
    if (lineWith(texts, toWide(lastResult())) != results - 1)
        throw std::runtime_error("The last line was not found");
    watch.addTo(times.find);
    const Texts copy = texts;
    if (copy.size() != texts.size())
        throw std::runtime_error("Not all texts were copied");
    watch.addTo(times.add);
}

struct Row
{
    const char* title;
    const char* baseline;
    double Times::*time;
};

constexpr Row rows[] = {
    {"open it", "open a window with a plain virtual list view of the same texts", &Times::open},
    {"Ctrl+A, which ticks all", "draw the plain list view again", &Times::tickAll},
    {"find the last one by typing its number",
     "make the same texts UTF-16 and small, and look through them once", &Times::find},
    {"\"Add\" with all ticked", "copy the same texts", &Times::add},
};

void run()
{
    const Texts texts = textsOfResults();
    Times own;
    Times plain;
    QuantityList list;
    for (int round = 0; round < rounds; ++round) {
        list.measure(texts, own);
        measurePlain(texts, plain);
    }
    std::cout << std::fixed << std::setprecision(3)
              << "| List of 100 000 results | seconds | baseline | seconds | ratio | goal | met |\n"
                 "|---|---|---|---|---|---|---|\n";
    for (const Row& row : rows) {
        const double seconds = own.*row.time / rounds;
        const double baseline = plain.*row.time / rounds;
        std::cout << "| " << row.title << " | " << seconds << " | " << row.baseline << " | "
                  << baseline << " | ";
        if (baseline > 0)
            std::cout << std::setprecision(1) << seconds / baseline << std::setprecision(3);
        std::cout << " | at most " << std::setprecision(1) << mostSeconds << std::setprecision(3)
                  << " s | " << (seconds <= mostSeconds ? "yes" : "no") << " |\n";
    }
}

}  // namespace
}  // namespace bench

int main()
{
    try {
        bench::run();
        return 0;
    }
    catch (const std::exception& error) {
        std::cerr << "window_bench: " << error.what() << '\n';
        return 1;
    }
}

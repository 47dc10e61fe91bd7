#include "Hand.h"

#include "FormDriver.h"
#include "standin/ExampleStudy.h"
#include "windows/Text.h"

#include <cstdint>
#include <stdexcept>
#include <system_error>

namespace driver
{

namespace
{

// A command line as Windows programs, and Wine, take it apart again.
std::wstring quoted(const std::string& word)
{
    std::wstring result = L"\"";
    for (const wchar_t letter : windows::toWide(word)) {
        if (letter == L'"')
            result += L'\\';
        result += letter;
    }
    return result + L'"';
}

// Wine keeps the display's number of a window with the window.
std::string displaysNumberOf(HWND window)
{
    const HANDLE number =
        window == nullptr ? nullptr : GetPropW(window, L"__wine_x11_whole_window");
    return number == nullptr ? "" : std::to_string(reinterpret_cast<std::uintptr_t>(number));
}

// Left to itself the hand rests for a tenth of a second after each.
const std::vector<std::string> click = {"click", "--delay", "5", "1"};

std::vector<std::string> at(POINT place)
{
    return {"mousemove", std::to_string(place.x), std::to_string(place.y)};
}

std::vector<std::string> operator+(std::vector<std::string> some,
                                   const std::vector<std::string>& more)
{
    some.insert(some.end(), more.begin(), more.end());
    return some;
}

}  // namespace

Hand::Hand()
    : answer_(std::filesystem::temp_directory_path() /
              ("hand-" + std::to_string(GetCurrentProcessId())))
{}

// A test that breaks must not leave the button down for the next one.
Hand::~Hand()
{
    if (isPressed_) {
        try {
            release();
        }
        catch (const std::exception&) {  // then the next test tells
        }
    }
    std::error_code ignored;
    std::filesystem::remove(answer_, ignored);
}

void Hand::moveTo(POINT place)
{
    act(at(place));
}

void Hand::clickAt(POINT place, const std::string& held)
{
    awaitDisplayAt(place);
    if (held.empty())
        act(click);
    else
        act(std::vector<std::string>{"keydown", held} + click +
            std::vector<std::string>{"keyup", held});
}

void Hand::rightClickAt(POINT place)
{
    awaitDisplayAt(place);
    act({"click", "3"});
}

void Hand::doubleClickAt(POINT place)
{
    awaitDisplayAt(place);
    act({"click", "--repeat", "2", "--delay", "5", "1"});
}

void Hand::pressAt(POINT place)
{
    awaitDisplayAt(place);
    isPressed_ = true;
    act({"mousedown", "1"});
}

void Hand::release()
{
    act({"mouseup", "1"});
    isPressed_ = false;
}

void Hand::drag(POINT from, POINT to)
{
    const POINT between{(from.x + to.x) / 2, (from.y + to.y) / 2};
    awaitDisplayAt(from);
    act(std::vector<std::string>{"mousedown", "1"} + at(between) + at(to) +
        std::vector<std::string>{"mouseup", "1"});
}

void Hand::turnWheel(POINT place, int notches)
{
    const std::string button = notches > 0 ? "4" : "5";
    act(at(place) + std::vector<std::string>{"click", "--repeat", std::to_string(std::abs(notches)),
                                             "--delay", "5", button});
}

void Hand::key(const std::vector<std::string>& keys)
{
    awaitKeyboardAt(nullptr);
    act(std::vector<std::string>{"key", "--delay", "5"} + keys);
}

void Hand::type(const std::string& text)
{
    awaitKeyboardAt(nullptr);
    act({"type", "--delay", "5", "--", text});
}

// A window manager would give the keyboard to the window in front. The screen of the tests has
// none, and the display ignores what Wine asks of it when that seems older than the last change; so
// the hand does it.
void Hand::awaitKeyboardAt(HWND window)
{
    constexpr std::chrono::milliseconds moment(500);
    const auto isThere = [&] {
        const HWND front = GetForegroundWindow();
        return (window == nullptr || front == window) && hasKeyboard(front);
    };
    for (int tries = 0; tries < 20; ++tries) {
        if (waitUntil(isThere, moment))
            return;
        const HWND front = window == nullptr ? GetForegroundWindow() : window;
        if (const std::string number = displaysNumberOf(front); !number.empty())
            act({"windowfocus", number});
    }
    throw std::runtime_error("The window in front does not get the keyboard");
}

// The display shows and hides windows a little later than Windows does. What is pressed meanwhile
// goes to a list or a dialog that is closed already, or not yet there.
void Hand::awaitDisplayAt(POINT place)
{
    const auto isShown = [&] {
        const std::string said =
            act(at(place) + std::vector<std::string>{"getmouselocation", "--shell"});
        const std::string number = displaysNumberOf(GetAncestor(WindowFromPoint(place), GA_ROOT));
        return !number.empty() && said.find("WINDOW=" + number + "\n") != std::string::npos;
    };
    if (!waitUntil(isShown))
        throw std::runtime_error("The display shows another window at the mouse than Windows");
}

bool Hand::hasKeyboard(HWND window)
{
    const std::string number = displaysNumberOf(window);
    return !number.empty() && act({"getwindowfocus", "-f"}) == number + "\n";
}

// Wine starts programs of the system outside, but cannot tell when they have ended: the shell says
// so in a file.
std::string Hand::act(const std::vector<std::string>& words)
{
    std::wstring line = LR"(sh -c "xdotool \"$@\"; echo \"ended $?\"" xdotool)";
    for (const std::string& word : words)
        line += L' ' + quoted(word);
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const HANDLE output = CreateFileW(answer_.c_str(), GENERIC_WRITE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      &inherited, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdOutput = output;
    start.hStdError = output;
    PROCESS_INFORMATION process{};
    const bool isStarted = CreateProcessW(L"Z:\\bin\\sh", line.data(), nullptr, nullptr, TRUE, 0,
                                          nullptr, nullptr, &start, &process) != FALSE;
    CloseHandle(output);
    if (!isStarted)
        throw std::runtime_error("There is no shell outside; the mouse is moved under Wine only");
    const std::string end = "ended 0\n";
    std::string said;
    const bool hasEnded = waitUntil([&] {
        said = comtest::contentOf(answer_);
        return said.ends_with("\n") && said.find("ended ") != std::string::npos;
    });
    if (!hasEnded || !said.ends_with(end))
        throw std::runtime_error("xdotool failed: " + said);
    return said.substr(0, said.size() - end.size());
}

POINT middleOf(HWND window)
{
    RECT place{};
    GetWindowRect(window, &place);
    return {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
}

POINT placeIn(HWND window, POINT inside)
{
    ClientToScreen(window, &inside);
    return inside;
}

POINT arrowOf(HWND box)
{
    RECT place{};
    GetWindowRect(box, &place);
    return {place.right - 8, (place.top + place.bottom) / 2};
}

POINT itemPlaceIn(HWND openList, HWND box, int item)
{
    const auto height = static_cast<int>(SendMessageW(box, CB_GETITEMHEIGHT, 0, 0));
    const int row = item - static_cast<int>(SendMessageW(box, CB_GETTOPINDEX, 0, 0));
    return placeIn(openList, {20, height * row + height / 2});
}

}  // namespace driver

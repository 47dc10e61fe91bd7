#pragma once

#include "FormDriver.h"
#include "Hand.h"
#include "standin/StandIn.h"

#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace driver
{

/// Does a study in the form and in FEMAP's dialogs by mouse and keyboard. Looks where things are
/// and waits for what comes of each step; a step whose outcome does not come raises
/// std::runtime_error that names it.
class Engineer
{
public:
    /// recording: the script into which velmar-study records the form; empty: the product itself.
    Engineer(StandIn& femap, const std::filesystem::path& folder, std::string recording = "")
        : femap_(femap), folder_(folder), recording_(std::move(recording))
    {}

    /// One line of a study script. Lines that a form has no hand for ("put", "print") do nothing.
    void perform(const std::string& line);
    /// Closes the form by its keys. Returns its exit code.
    DWORD close();

private:
    void start(std::string_view argument);
    void set(std::string_view argument);
    void queuePick(std::string_view argument) { picks_.emplace_back(argument); }
    void queueChoice(std::string_view argument) { choices_.emplace_back(argument); }
    void click(std::string_view argument);
    void select(std::string_view argument);
    void key(std::string_view argument);
    void nothing(std::string_view) {}

    void chooseFromList(const std::string& box, LRESULT item, const std::string& text);
    void write(HWND field, const std::string& text);
    void pressButton(HWND button);
    void answerPick(HWND dialog);
    void answerChoice(HWND dialog);
    void typeIDs(HWND dialog, HWND list, const std::string& ids);
    void markInList(HWND list, LRESULT item, bool further);
    void bringIntoView(HWND list, int item, const std::function<int()>& top,
                       const std::function<int()>& visibleCount);
    int intoView(HWND listView, int item);
    POINT rowOf(const std::string& grid, int item);
    void waitFor(const std::string& what, const std::function<bool()>& condition);

    struct Action
    {
        std::string_view name;
        void (Engineer::*procedure)(std::string_view argument);
    };
    static const Action actions[];

    StandIn& femap_;
    const std::filesystem::path& folder_;
    const std::string recording_;
    std::unique_ptr<Process> process_;
    std::unique_ptr<FormDriver> form_;
    Hand hand_;
    std::string line_;  // that is at work
    std::deque<std::string> picks_;
    std::deque<std::string> choices_;
};

}  // namespace driver

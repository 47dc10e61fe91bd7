// The whole product beside a stand-in in each of its modes: form and velmar-study as programs of
// their own, with FEMAP in a third process.
#include "FormDriver.h"
#include "FormFiles.h"
#include "standin/ExampleStudy.h"
#include "standin/Modes.h"
#include "standin/StandIn.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <fstream>
#include <memory>
#include <sstream>
#include <utility>

namespace driver
{

using comtest::Contents;
using standin::Mode;

namespace
{

constexpr std::chrono::seconds longest(60);  // for one step, on a machine that is busy

// What a mode changes of what the product leaves.
struct Change
{
    Mode mode;
    std::string_view study{};   // a number in the study, and what it is in this FEMAP
    std::string_view number{};  // then in the files, too
    std::string_view lines{};   // lines with this word may differ, and some do
    std::string_view told{};    // there are more rows, and this stands in the log
};

// clang-format off
constexpr Change changes[] = {
    {.mode = Mode::Renumbered,      .study = "7433", .number = "9033"},
    {.mode = Mode::ProductsNegated, .lines = "Inertia"},
    {.mode = Mode::MixedLoads,      .told = "Error occured Reading meshID of a load"},  // sic
};
// clang-format on

Change changeOf(Mode mode)
{
    const auto* const found = std::ranges::find(changes, mode, &Change::mode);
    return found == std::end(changes) ? Change{.mode = mode} : *found;
}

std::string withNumberOf(const Change& change, std::string text)
{
    if (change.study.empty())
        return text;
    for (std::size_t at = 0; (at = text.find(change.study, at)) != std::string::npos;)
        text.replace(at, change.study.size(), change.number);
    return text;
}

// Does a study in the form by window messages. FEMAP's dialogs are answered ahead.
class Clerk
{
public:
    Clerk(StandIn& femap, const std::filesystem::path& folder) : femap_(femap), folder_(folder) {}

    void perform(const std::string& line)
    {
        std::istringstream words(line);
        std::string action;
        std::string name;
        words >> action;
        std::string rest;
        std::getline(words >> std::ws, rest);
        if (action == "start")
            start(rest);
        else if (action == "pick")
            femap_.pick(rest);
        else if (action == "choose")
            choices_.push_back(rest);
        else if (action == "set")
            set(rest);
        else if (action == "click")
            click(rest);
        else
            throw std::logic_error("No clerk can do: " + line);
    }

    FormDriver& form() { return *form_; }
    Process& program() { return *program_; }

private:
    void start(const std::string& arguments)
    {
        program_ = std::make_unique<Process>(programPath("VelmarFemapInterface.exe"),
                                             windows::toWide(arguments), folder_);
        form_ = std::make_unique<FormDriver>(*program_);
        ASSERT_TRUE(waitUntil([&] { return form_->isEnabled("InputsButton"); }));
        form_->settle();
    }
    void set(const std::string& rest)
    {
        const std::size_t blank = rest.find(' ');
        form_->choose(rest.substr(0, blank), rest.substr(blank + 1));
    }
    void click(const std::string& button)
    {
        form_->press(button);
        for (const std::string& choice : std::exchange(choices_, {}))
            form_->add(offeredAs(choice));
        form_->settle(longest);
    }
    // The entries of the list that a study names with or without what follows an ID.
    std::vector<std::string> offeredAs(const std::string& choice)
    {
        const std::vector<std::string> offered = form_->offered();
        std::vector<std::string> entries;
        std::istringstream rest(choice);
        for (std::string item; std::getline(rest >> std::ws, item, '|');) {
            item.erase(item.find_last_not_of(' ') + 1);
            const auto entry = std::ranges::find_if(offered, [&](const std::string& one) {
                return one == item || one.starts_with(item + " - ");
            });
            entries.push_back(entry == offered.end() ? item : *entry);
        }
        return entries;
    }

    StandIn& femap_;
    const std::filesystem::path& folder_;
    std::unique_ptr<Process> program_;
    std::unique_ptr<FormDriver> form_;
    std::vector<std::string> choices_;
};

std::vector<std::string> linesOf(const std::string& text)
{
    std::istringstream rest(text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(rest, line);)
        lines.push_back(line);
    return lines;
}

// The log without what differs from run to run: the time of the start, the size that a form that is
// shown gets once, and who says that there is no such value.
Contents comparable(Contents contents)
{
    comtest::forgetTime(contents);
    for (auto& [name, text] : contents) {
        if (!name.ends_with(".log"))
            continue;
        comtest::forgetFirstSize(text);
        std::string log;
        for (const std::string& line : linesOf(text)) {
            const bool isRefusal = line.find(" has no place ") != std::string::npos ||
                                   line.find(" has no member ") != std::string::npos;
            log += (isRefusal ? "refused" : line) + '\n';
        }
        text = log;
    }
    return contents;
}

// The first line in which files differ that should not, and how many lines do that may.
struct Difference
{
    std::string forbidden;
    int allowed = 0;
};

// Lines with the word may differ.
Difference inOtherLines(const std::vector<std::string>& one, const std::vector<std::string>& other,
                        std::string_view word)
{
    if (one.size() != other.size())
        return {"another number of lines"};
    Difference result;
    for (std::size_t i = 0; i < one.size(); ++i) {
        if (one[i] == other[i])
            continue;
        if (one[i].find(word) == std::string::npos)
            return {one[i]};
        ++result.allowed;
    }
    return result;
}

// There may be further lines between those of the other.
Difference inMissingLines(const std::vector<std::string>& one,
                          const std::vector<std::string>& other)
{
    auto place = one.begin();
    for (const std::string& line : other) {
        place = std::find(place, one.end(), line);
        if (place == one.end())
            return {line};
        ++place;
    }
    return {{}, static_cast<int>(one.size() - other.size())};
}

class ProductInMode : public testing::TestWithParam<standin::ModeName>
{
protected:
    void expectFiles(const Contents& found, const Contents& expected) const
    {
        EXPECT_GT(expected.size(), 8U);
        ASSERT_EQ(found.size(), expected.size());
        int allowed = 0;
        for (const auto& [name, content] : expected) {
            const Difference difference =
                differenceOf(name, found.at(name), withNumberOf(change, content));
            EXPECT_EQ(difference.forbidden, "") << name;
            allowed += difference.allowed;
        }
        EXPECT_EQ(allowed > 0, !change.lines.empty() || !change.told.empty());
    }

    FormFiles files;
    const Change change = changeOf(GetParam().mode);

private:
    Difference differenceOf(const std::string& name, const std::string& one,
                            const std::string& other) const
    {
        if (!change.lines.empty())
            return inOtherLines(linesOf(one), linesOf(other), change.lines);
        if (change.told.empty())
            return {std::string(comtest::fromFirstDifference(one, other)).substr(0, 500)};
        if (!name.ends_with(".log"))
            return inMissingLines(linesOf(one), linesOf(other));
        return {one.find(change.told) == std::string::npos ? "not told" : ""};
    }
};

INSTANTIATE_TEST_SUITE_P(Each, ProductInMode, testing::ValuesIn(standin::modeNames),
                         [](const testing::TestParamInfo<standin::ModeName>& mode) {
                             std::string name(mode.param.name);
                             std::erase(name, '-');
                             return name;
                         });

}  // namespace

TEST_P(ProductInMode, LeavesTheFilesAndTheLogOfTheModelHost)
{
    const std::string study = "tests/standin/modes.study";
    const std::filesystem::path script = comtest::writeScript(study, files.folder());
    ASSERT_EQ(comtest::replay(script, "embedded"), 0U);
    const Contents expected = comparable(comtest::takeFiles(files.folder()));
    StandIn femap(files.folder() / "panel.neu", "--" + std::string(GetParam().name));
    const std::string told = withNumberOf(change, comtest::contentOf(script));
    std::ofstream(script, std::ios::binary) << told;

    EXPECT_EQ(comtest::replay(script, "running"), 0U);
    expectFiles(comparable(comtest::takeFiles(files.folder())), expected);

    Clerk clerk(femap, files.folder());
    for (const std::string& line : comtest::actionsOf(study, files.folder()))
        clerk.perform(withNumberOf(change, line));
    femap.setModel("none");
    femap.sendEvent(2);
    EXPECT_TRUE(waitUntil([&] { return !clerk.form().isEnabled("GenerateButton"); }));
    femap.sendEvent(4);
    EXPECT_EQ(clerk.program().exitCode(), 0U);
    EXPECT_EQ(femap.lockCount(), 0);
    expectFiles(comparable(comtest::takeFiles(files.folder())), expected);
}

}  // namespace driver

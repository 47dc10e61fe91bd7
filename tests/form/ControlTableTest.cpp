#include "form/MainForm.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string_view>
#include <vector>

namespace
{

TEST(ControlTable, KeepsTheIDsThatProgramsFindTheControlsBy)
{
    const std::map<std::string_view, int> expected = {
        {"pbOuter", 1000},
        {"pbInner", 1001},
        {"Inputs", 1002},
        {"InputSelection", 1003},
        {"InputsButton", 1004},
        {"RefreshInputs", 1005},
        {"ClearInputSelection", 1006},
        {"InputsList", 1007},
        {"Outputs", 1008},
        {"OutputSelection", 1009},
        {"OutputsButton", 1010},
        {"RefreshOutputs", 1011},
        {"ClearOutputSelection", 1012},
        {"OutputsList", 1013},
        {"Execution", 1014},
        {"Label1", 1015},
        {"CommandLine", 1016},
        {"Label2", 1017},
        {"Solver", 1018},
        {"Label3", 1019},
        {"Optimizer", 1020},
        {"ClearAll", 1021},
        {"GenerateButton", 1022},
        {"StatusLine", 1023},
        {"HScroll1", 1024},
        {"VScroll1", 1025},
    };

    std::map<std::string_view, int> ids;
    for (const form::ControlRow& row : form::controlTable)
        ids[row.name] = row.id;

    EXPECT_EQ(ids, expected);
}

TEST(ControlTable, GivesNoIDTwice)
{
    std::set<int> ids;
    for (const form::ControlRow& row : form::controlTable)
        EXPECT_TRUE(ids.insert(row.id).second) << row.name;
}

TEST(ControlTable, LeadsToTheControlAsWhatItIsAndAsNothingElse)
{
    const form::MainForm form;

    EXPECT_EQ(form.named(form.ClearAll).name, "ClearAll");
    EXPECT_EQ(form.named(form.ClearAll).as<form::Button>(), &form.ClearAll);
    EXPECT_EQ(form.named(form.ClearAll).as<form::Label>(), nullptr);
    EXPECT_EQ(form.named(form.StatusLine).as<form::StatusText>(), &form.StatusLine);
    EXPECT_EQ(form.named(form.StatusLine).as<form::Label>(), nullptr);
    EXPECT_EQ(form.named(form.InputsList).as<form::ParameterGrid>(), &form.InputsList);
}

TEST(ControlTable, HasEveryAccessKeyOnce)
{
    std::vector<char> keys;
    for (const form::ControlRow& each : form::controlTable)
        if (each.accessKey != 0)
            keys.push_back(each.accessKey);

    EXPECT_EQ(std::string(keys.begin(), keys.end()), "NERMUTFVDSPLA");
    std::ranges::sort(keys);
    EXPECT_EQ(std::ranges::adjacent_find(keys), keys.end());
}

TEST(ControlTable, HasATipForEveryAccessKey)
{
    for (const form::ControlRow& row : form::controlTable)
        EXPECT_EQ(row.tip.empty(), row.accessKey == 0) << row.name;
}

}  // namespace

#pragma once

#include "selection/LevelledLog.h"
#include "selection/SelectionFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace selection
{

/// Nodes, elements and a vector to select, and what is told of it.
class SelectionOutcome : public testing::Test
{
protected:
    SelectionFixture f;

    void SetUp() override
    {
        f.addNodes({1, 2, 3});
        f.addElements({{10, femap::elementPlate}, {11, femap::elementRod}});
        f.addVector(1, "Total Translation", {1, 2}, {0.5, 1.5});
        f.dialog.UpdateCollection();
    }

    std::string status() const { return f.form.StatusLine.Caption; }
    Texts inputs() const { return f.names(f.form.InputsList); }
    Texts outputs() const { return f.names(f.form.OutputsList); }

    // In FEMAP's message window, on the status line and in the log.
    void expectTold(LevelledLog& log, const std::string& message)
    {
        EXPECT_THAT(f.messages(), testing::ElementsAre(message));
        EXPECT_EQ(status(), message);
        EXPECT_THAT(log.lines(), testing::Contains("DEBUG: " + message));
    }
    // On the status line only.
    void expectHint(const std::string& hint)
    {
        EXPECT_EQ(status(), hint);
        EXPECT_THAT(f.messages(), testing::IsEmpty());
    }
    void selectOutputs(const std::string& kind, std::vector<int> ids, Texts vectors)
    {
        if (!ids.empty())
            f.pick(std::move(ids));
        f.list.choose(std::move(vectors));
        f.form.status.clear();  // as at each click
        f.selectOutput(kind);
    }
    void selectInputs(const std::string& kind, std::vector<int> ids, Texts fields)
    {
        f.form.status.clear();
        f.selectInput(kind, std::move(ids), std::move(fields));
    }
};

}  // namespace selection

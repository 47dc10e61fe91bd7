#include "femap/ForwardingApplication.h"
#include "selection/SelectionFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <utility>

namespace selection
{
namespace
{

using testing::ElementsAre;

/// A FEMAP whose new entity sets still hold all nodes.
class LeavesNodesInNewSets : public femap::ForwardingApplication
{
public:
    using ForwardingApplication::ForwardingApplication;

    std::unique_ptr<femap::EntitySet> feSet() override
    {
        auto set = ForwardingApplication::feSet();
        set->AddAll(femap::EntityType::Node);
        return set;
    }
};

class FreshSets : public testing::Test
{
protected:
    SelectionFixture f;

    void SetUp() override
    {
        f.addNodes({1, 2, 3});
        f.addVector(7, "Total Translation", {1, 2, 3}, {0.5, 1.5, 2.5});
        f.dialog.UpdateCollection();
        f.context.application =
            std::make_unique<LeavesNodesInNewSets>(std::move(f.context.application));
    }
};

TEST_F(FreshSets, HoldOnlyThePickedInputs)
{
    f.selectInput("Nodes", {2}, {"x"});

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("xAtNode2"));
}

TEST_F(FreshSets, HoldOnlyThePickedOutputs)
{
    f.pick({2});
    f.list.choose({"7 - Total Translation"});

    f.selectOutput("Nodes");

    EXPECT_THAT(f.names(f.form.OutputsList), ElementsAre("TotalTrans7AtNode2"));
}

}  // namespace
}  // namespace selection

#include "femap/embedded/Deck.h"
#include "femap/embedded/Host.h"
#include "femap/embedded/ModelDifference.h"
#include "femap/neutral/NeutralFile.h"
#include "system/CodePage.h"
#include "system/Files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

using femap::FunctionPoints;
using femap::ModelValues;
using femap::Value;
using femap::embedded::differences;
using femap::neutral::Model;

namespace
{

struct NoDialogs : femap::SelectionDialogs
{
    femap::Selection answer(femap::EntityType, const std::string&, bool,
                            const std::vector<int>&) override
    {
        return {};
    }
};

Model panel()
{
    Model model;
    const std::string path = SOURCE_FOLDER "/examples/panel.neu";
    readNeutralFile(sys::DiskFiles().read(path), path, sys::windows1252(), model);
    return model;
}

std::string deckOf(const Model& model)
{
    std::string deck;
    femap::embedded::writeDeck(model, [&](const std::string& lines) { deck += lines; });
    return deck;
}

Model with(const ModelValues& values)
{
    NoDialogs dialogs;
    femap::embedded::Host host(dialogs);
    host.model = panel();
    host.attach()->changes()->put(values);
    return std::move(*host.model);
}

ModelValues valuesOfEveryKind()
{
    const Value number = 7.25;
    return {{{"Node", 441, {"x"}, number},
             {"Elem", 130, {"offset", 0}, number},
             {"Prop", 1, {"pval", 0}, number},
             {"Prop", 6, {"matlID"}, Value(std::int64_t{1})},
             {"Matl", 3, {"Density"}, number}},
            {{1, 1, 0, {"load", 2}, number},
             {1, 4, 1, {"load", 0}, number},
             {1, 3, 0, {"load", 0}, number},
             {1, 5, 1, {"temp"}, number},
             {1, 6, 0, {"temp"}, number}},
            {{2, FunctionPoints{{0, 1}, {2, 3.5}}}}};
}

TEST(ModelDifference, OfAModelAndItselfIsEmpty)
{
    const ModelValues values = differences(panel(), panel());

    EXPECT_TRUE(values.entities.empty());
    EXPECT_TRUE(values.loads.empty());
    EXPECT_TRUE(values.functions.empty());
}

TEST(ModelDifference, MakesTheOneModelTheOther)
{
    const Model changed = with(valuesOfEveryKind());

    const ModelValues values = differences(panel(), changed);

    EXPECT_NE(deckOf(panel()), deckOf(changed));
    EXPECT_EQ(deckOf(with(values)), deckOf(changed));
}

TEST(ModelDifference, NamesNoMoreThanWhatDiffers)
{
    const ModelValues values = differences(panel(), with(valuesOfEveryKind()));

    EXPECT_EQ(values.entities.size(), valuesOfEveryKind().entities.size());
    EXPECT_EQ(values.loads.size(), valuesOfEveryKind().loads.size());
    EXPECT_EQ(values.functions.size(), 1U);
}

}  // namespace

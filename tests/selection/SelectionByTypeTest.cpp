#include "selection/SelectionFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace selection
{
namespace
{

using testing::Contains;
using testing::ElementsAre;

// What is selected with one list for each type of what was picked: two of them here.
struct ByType
{
    const char* choice;
    const char* kind;  // of an entity
    int firstType;
    int secondType;
    const char* firstHeading;
    const char* secondHeading;
    const char* headingWithoutType;
    const char* field;  // of the second type, and the name of its row
    const char* row;
    const char* readingTypes;
    const char* selecting;
    const char* end;  // of the log
};

class SelectionByType : public testing::TestWithParam<ByType>
{
protected:
    SelectionFixture f;
    const ByType& which = GetParam();
    const bool isInput = which.choice == std::string("Properties");
    form::ParameterGrid& grid = isInput ? f.form.InputsList : f.form.OutputsList;

    void SetUp() override
    {
        f.addVector(7020, "Plate Stress", {10, 11}, {1, 2});
        f.addVector(60010, "Solid Stress", {10, 11}, {5, 6});
        f.dialog.UpdateCollection();
        add({{10, which.firstType}, {11, which.secondType}});
        f.pick({10, 11});
    }
    void add(const std::vector<std::pair<int, int>>& idsAndTypes)
    {
        isInput ? f.addProperties(idsAndTypes) : f.addElements(idsAndTypes);
    }
    void select() { isInput ? f.selectInput(which.choice) : f.selectOutput(which.choice); }
    Texts logOfSelecting()
    {
        return f.logOf([&] { select(); });
    }
};

TEST_P(SelectionByType, SkipsWhatHasATypeThatCannotBeRead)
{
    const std::string reading = which.kind + std::string(".Type 10");
    f.watchFemap().failAt(reading);

    const Texts log = logOfSelecting();

    EXPECT_THAT(f.headings(), ElementsAre(which.secondHeading));
    EXPECT_THAT(log, Contains("ERROR: " + reading + " failed"));
    EXPECT_THAT(log, Contains(std::string("DEBUG: Error occured ") + which.readingTypes));
    EXPECT_FALSE(f.context.error.isPending());
}

TEST_P(SelectionByType, SkipsWhatFemapLacks)
{
    f.watchFemap().before(std::string("entity ") + which.kind, [&] {
        f.model().properties = {};
        f.model().elements = {};
        add({{11, which.secondType}});
    });

    const Texts log = logOfSelecting();

    EXPECT_THAT(f.headings(), ElementsAre(which.secondHeading));
    EXPECT_THAT(log,
                Contains(std::string("ERROR: FEMAP has no ") + which.kind + " with the ID 10"));
}

TEST_P(SelectionByType, GoesOnWithTheNextTypeWhenOneFails)
{
    f.watchFemap().failAtFirst("feAppLock");
    f.list.chooseAll();
    f.list.choose({which.field});

    const Texts log = logOfSelecting();

    EXPECT_THAT(f.names(grid), ElementsAre(which.row));
    EXPECT_THAT(log, Contains("ERROR: feAppLock failed"));
    EXPECT_THAT(log, Contains(std::string("DEBUG: Error occured ") + which.selecting));
    EXPECT_FALSE(f.context.error.isPending());
}

TEST_P(SelectionByType, EndsAtOnceWhenFemapIsGone)
{
    f.watchFemap().dieAt("feAppLock");

    EXPECT_THROW(select(), femap::ConnectionLost);

    EXPECT_THAT(f.headings(), ElementsAre(which.firstHeading));
}

TEST_P(SelectionByType, OffersWhatEveryTypeHasWhenAListFails)
{
    f.connector.failAtFirst("attach");

    select();

    EXPECT_THAT(f.headings(), ElementsAre(which.headingWithoutType, which.secondHeading));
    EXPECT_FALSE(f.context.error.isPending());
}

TEST_P(SelectionByType, ShowsNoListThatCannotBeFilled)
{
    f.connector.failAtFirst("attach", 2);

    const Texts log = logOfSelecting();

    EXPECT_THAT(f.headings(), ElementsAre(which.secondHeading));
    EXPECT_THAT(log, Contains("ERROR: attach failed"));
    EXPECT_EQ(log.back(), which.end);
}

INSTANTIATE_TEST_SUITE_P(
    InputsAndOutputs, SelectionByType,
    testing::Values(ByType{"Properties", "Prop", femap::elementBeam, femap::elementRod,
                           "Beam Properties", "Rod Properties", "Undefined Property", "Area",
                           "AreaAtProp11", "After reading the type of a property",
                           "After selecting property fields",
                           "DEBUG: After click of Select for input parameter"},
                    ByType{"Elements", "Elem", femap::elementSolid, femap::elementPlate,
                           "Solid Element Output Properties", "Plate Element Output Properties",
                           "Undefined Output Property", "7020 - Plate Stress",
                           "PlateStres7020AtElem11", "After reading the type of an element",
                           "After selecting element outputs",
                           "DEBUG: Position at At end of OutputsButton_Click"}),
    [](const auto& each) { return each.param.choice; });

}  // namespace
}  // namespace selection

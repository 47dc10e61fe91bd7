#include "fake/ForwardingObjects.h"
#include "femap/ForwardingApplication.h"
#include "selection/SelectionFixture.h"
#include "selection/ValueRefresh.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace selection
{
namespace
{

struct Tally
{
    int announced = 0;  // readings that were announced
    int read = 0;       // members and values
};

template <class List, class Element>
bool isIn(const List& list, const Element& element)
{
    return std::find(list.begin(), list.end(), element) != list.end();
}

// Fails when an entity is loaded or a member read that was not announced.
class StrictEntity : public fake::ForwardingEntity
{
public:
    StrictEntity(std::unique_ptr<femap::Entity> real, Tally& tally)
        : ForwardingEntity(std::move(real)), tally_(tally)
    {}

    void prefetch(const std::vector<int>& ids,
                  const std::vector<femap::MemberName>& members) override
    {
        EXPECT_TRUE(std::is_sorted(ids.begin(), ids.end()));
        ++tally_.announced;
        ids_ = ids;
        members_ = members;
    }
    femap::ReturnCode Get(int id) override
    {
        EXPECT_TRUE(isIn(ids_, id)) << id;
        return ForwardingEntity::Get(id);
    }
    int Type() override
    {
        read({"type"});
        return ForwardingEntity::Type();
    }
    femap::Value member(const std::string& name) override
    {
        read({name});
        return ForwardingEntity::member(name);
    }
    femap::Value member(const std::string& name, int index) override
    {
        read({name, index});
        return ForwardingEntity::member(name, index);
    }

private:
    void read(const femap::MemberName& member)
    {
        ++tally_.read;
        EXPECT_TRUE(isIn(members_, member)) << member.name;
    }

    Tally& tally_;
    std::vector<int> ids_;
    std::vector<femap::MemberName> members_;
};

// The same for vectors and their values.
class StrictVector : public fake::ForwardingVector
{
public:
    StrictVector(std::unique_ptr<femap::OutputVector> real, Tally& tally)
        : ForwardingVector(std::move(real)), tally_(tally)
    {}

    void prefetch(std::vector<femap::VectorReading> plan) override
    {
        ++tally_.announced;
        plan_ = std::move(plan);
        EXPECT_TRUE(std::ranges::is_sorted(plan_, {}, &femap::VectorReading::vectorID));
    }
    femap::ReturnCode Get(int vectorID) override
    {
        const auto place = std::ranges::find(plan_, vectorID, &femap::VectorReading::vectorID);
        EXPECT_NE(place, plan_.end()) << vectorID;
        entities_ = place == plan_.end() ? std::vector<int>() : place->entityIDs;
        EXPECT_TRUE(std::is_sorted(entities_.begin(), entities_.end()));
        return ForwardingVector::Get(vectorID);
    }
    double Value(int entityID) override
    {
        ++tally_.read;
        EXPECT_TRUE(isIn(entities_, entityID)) << entityID;
        return ForwardingVector::Value(entityID);
    }

private:
    Tally& tally_;
    std::vector<femap::VectorReading> plan_;
    std::vector<int> entities_;
};

class StrictFemap : public femap::ForwardingApplication
{
public:
    StrictFemap(std::unique_ptr<femap::Application> real, Tally& tally)
        : ForwardingApplication(std::move(real)), tally_(tally)
    {}

    std::unique_ptr<femap::Entity> entity(const std::string& word) override
    {
        return std::make_unique<StrictEntity>(ForwardingApplication::entity(word), tally_);
    }
    std::unique_ptr<femap::OutputVector> feOutput() override
    {
        return std::make_unique<StrictVector>(ForwardingApplication::feOutput(), tally_);
    }

private:
    Tally& tally_;
};

class AnnouncedReading : public testing::Test
{
protected:
    AnnouncedReading()
    {
        f.addNodes({2, 4, 6});
        f.addElements({{1, 17}, {3, 1}, {5, 17}});
        f.addProperties({{1, 17}, {2, 5}, {3, 17}});
        f.addVector(1, "Total Translation", {2, 6}, {0.5, 0.25});
        f.addVector(7033, "Plate Top", {1, 5}, {10, 20});
        f.dialog.UpdateCollection();
        f.context.application = std::make_unique<StrictFemap>(f.femap.attach(), tally);
    }

    SelectionFixture f;
    Tally tally;
};

TEST_F(AnnouncedReading, CoversTheFieldsOfEntities)
{
    f.selectInput("Nodes", {2, 4, 6}, {"x", "z"});
    f.selectInput("Elements", {1, 3}, {"node1", "orientID", "topology"});

    EXPECT_EQ(tally.announced, 2);
    EXPECT_EQ(tally.read, 3 * 2 + 2 * 3);
}

TEST_F(AnnouncedReading, CoversTheTypesOfProperties)
{
    f.pick({1, 2, 3});
    f.list.choose({"Thickness", "Color"});
    f.list.choose({"I1"});
    f.selectInput("Properties");

    EXPECT_EQ(tally.announced, 3);
    EXPECT_EQ(tally.read, 3 + (3 + 2 * 2) + (3 + 1));
}

TEST_F(AnnouncedReading, LeavesOutTheTypeWhereAllPropertiesHaveOne)
{
    f.selectInput("Properties", {1, 3}, {"Thickness", "Color"});

    EXPECT_EQ(f.form.InputsList.Rows(), 1 + 4);
    EXPECT_EQ(tally.announced, 2);
    EXPECT_EQ(tally.read, 2 + 2 * 2);
}

TEST_F(AnnouncedReading, CoversTheResultsAtNodes)
{
    f.pick({2, 4, 6});
    f.list.chooseAll();
    f.selectOutput("Nodes");

    EXPECT_EQ(tally.announced, 2);
    EXPECT_EQ(tally.read, 3);
}

TEST_F(AnnouncedReading, CoversTheResultsAtElementsOfEachType)
{
    f.pick({1, 3, 5});
    f.list.chooseAll();
    f.list.chooseAll();
    f.selectOutput("Elements");

    EXPECT_GE(tally.announced, 4);
    EXPECT_GE(tally.read, 3 + 3 + 2);
}

TEST_F(AnnouncedReading, CoversTheMaximaAndMinima)
{
    f.list.chooseAll();
    f.selectOutput("Nodes Min/Max");

    EXPECT_EQ(f.form.OutputsList.Rows(), 1 + 2);
    EXPECT_EQ(tally.announced, 1);
}

TEST_F(AnnouncedReading, CoversARefreshOfRowsInAnyOrder)
{
    for (const char* const row :
         {"C\t0\tProp\t3\tpval\t0", "A\t0\tNode\t6\tx\t", "K\t0\tFunction\t1\t\t",
          "B\t0\tElem\t5\tnode\t2", "D\t0\tNode\t2\tdefCSys\t", "E\t0\tNode\tsix\tx\t",
          "F\t0\tElem\t1\tnode\ttwo"})
        f.form.InputsList.AddItem(row);
    for (const char* const row :
         {"A\t0\t6\t1\tOutput", "B\t0\t5\t7033\tOutput", "C\t0\t2\t1\tOutput", "D\t0\t1\t1\tmaxval",
          "E\t0\tMassTotal\t\tMassProperties", "F\t0\ttwo\t1\tOutput", "G\t0\t1\tone\tOutput"})
        f.form.OutputsList.AddItem(row);

    RefreshInputs_Click(f.context);
    RefreshOutputs_Click(f.context);

    EXPECT_EQ(f.form.InputsList.text(3, 1), "6.5");
    EXPECT_EQ(f.form.OutputsList.text(2, 1), "0.25");
    EXPECT_EQ(f.form.OutputsList.text(3, 1), "20");
    EXPECT_EQ(tally.announced, 3 + 1);
    EXPECT_EQ(tally.read, 4 + 3);
}

TEST_F(AnnouncedReading, CoversTheVectorsOfTheList)
{
    f.connector.attached = [this] {
        return std::make_unique<StrictFemap>(f.femap.attach(), tally);
    };

    f.dialog.UpdateCollection();

    f.dialog.GetPropertyList("Output", "Node");
    EXPECT_THAT(itemsOf(f.dialog), testing::ElementsAre("1 - Total Translation"));
    EXPECT_EQ(tally.announced, 1);
}

}  // namespace
}  // namespace selection

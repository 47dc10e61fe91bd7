#include "fake/WatchedFemap.h"
#include "selection/SelectionFixture.h"
#include "selection/ValueRefresh.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace selection
{
namespace
{

template <class List, class Element>
bool isIn(const List& list, const Element& element)
{
    return std::find(list.begin(), list.end(), element) != list.end();
}

// Fails when an entity is loaded or a member read that was not announced.
class StrictEntity : public fake::WatchedEntity
{
public:
    using WatchedEntity::WatchedEntity;

    void prefetch(const std::vector<int>& ids,
                  const std::vector<femap::MemberName>& members) override
    {
        EXPECT_TRUE(std::is_sorted(ids.begin(), ids.end()));
        ids_ = ids;
        members_ = members;
        WatchedEntity::prefetch(ids, members);
    }
    femap::ReturnCode Get(int id) override
    {
        EXPECT_TRUE(isIn(ids_, id)) << id;
        return WatchedEntity::Get(id);
    }
    int Type() override
    {
        read({"type"});
        return WatchedEntity::Type();
    }
    femap::Value member(const std::string& name) override
    {
        read({name});
        return WatchedEntity::member(name);
    }
    femap::Value member(const std::string& name, int index) override
    {
        read({name, index});
        return WatchedEntity::member(name, index);
    }

private:
    void read(const femap::MemberName& member) const
    {
        EXPECT_TRUE(isIn(members_, member)) << member.name;
    }

    std::vector<int> ids_;
    std::vector<femap::MemberName> members_;
};

// The same for vectors and their values.
class StrictVector : public fake::WatchedVector
{
public:
    using WatchedVector::WatchedVector;

    void prefetch(std::vector<femap::VectorReading> plan) override
    {
        EXPECT_TRUE(std::ranges::is_sorted(plan, {}, &femap::VectorReading::vectorID));
        plan_ = plan;
        WatchedVector::prefetch(std::move(plan));
    }
    femap::ReturnCode Get(int vectorID) override
    {
        const auto place = std::ranges::find(plan_, vectorID, &femap::VectorReading::vectorID);
        EXPECT_NE(place, plan_.end()) << vectorID;
        entities_ = place == plan_.end() ? std::vector<int>() : place->entityIDs;
        EXPECT_TRUE(std::is_sorted(entities_.begin(), entities_.end()));
        return WatchedVector::Get(vectorID);
    }
    double Value(int entityID) override
    {
        EXPECT_TRUE(isIn(entities_, entityID)) << entityID;
        return WatchedVector::Value(entityID);
    }

private:
    std::vector<femap::VectorReading> plan_;
    std::vector<int> entities_;
};

class StrictFemap : public fake::WatchedFemap
{
public:
    using WatchedFemap::WatchedFemap;

    std::unique_ptr<femap::Entity> entity(const std::string& word) override
    {
        return watched<StrictEntity>(told("entity", word).entity(word), word);
    }
    std::unique_ptr<femap::OutputVector> feOutput() override
    {
        return watched<StrictVector>(told("feOutput").feOutput(), "Output");
    }
};

class StrictConnector : public femap::Connector
{
public:
    StrictConnector(femap::Connector& real, fake::CallWatch& watch) : real_(real), watch_(watch) {}

    std::unique_ptr<femap::Application> attach() override
    {
        return std::make_unique<StrictFemap>(real_.attach(), watch_);
    }
    std::unique_ptr<femap::Application> create() override { return attach(); }

private:
    femap::Connector& real_;
    fake::CallWatch& watch_;
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
        f.context.application = strict.attach();
    }

    std::ptrdiff_t announced() const { return watch.count("prefetch"); }
    // Members of entities, and values of vectors.
    std::ptrdiff_t read() const
    {
        return std::ranges::count_if(watch.calls, [](const fake::Call& call) {
            return call == "Type" || call == "Value" ||
                   (call == "member" && call.object != "Output");
        });
    }

    fake::CallWatch watch;
    SelectionFixture f;
    StrictConnector strict{f.femap, watch};
};

TEST_F(AnnouncedReading, CoversTheFieldsOfEntities)
{
    f.selectInput("Nodes", {2, 4, 6}, {"x", "z"});
    f.selectInput("Elements", {1, 3}, {"node1", "orientID", "topology"});

    EXPECT_EQ(announced(), 2);
    EXPECT_EQ(read(), 3 * 2 + 2 * 3);
}

TEST_F(AnnouncedReading, CoversTheTypesOfProperties)
{
    f.pick({1, 2, 3});
    f.list.choose({"Thickness", "Color"});
    f.list.choose({"I1"});
    f.selectInput("Properties");

    EXPECT_EQ(announced(), 3);
    EXPECT_EQ(read(), 3 + (3 + 2 * 2) + (3 + 1));
}

TEST_F(AnnouncedReading, LeavesOutTheTypeWhereAllPropertiesHaveOne)
{
    f.selectInput("Properties", {1, 3}, {"Thickness", "Color"});

    EXPECT_EQ(f.form.InputsList.Rows(), 1 + 4);
    EXPECT_EQ(announced(), 2);
    EXPECT_EQ(read(), 2 + 2 * 2);
}

TEST_F(AnnouncedReading, CoversTheResultsAtNodes)
{
    f.pick({2, 4, 6});
    f.list.chooseAll();
    f.selectOutput("Nodes");

    EXPECT_EQ(announced(), 2);
    EXPECT_EQ(read(), 3);
}

TEST_F(AnnouncedReading, CoversTheResultsAtElementsOfEachType)
{
    f.pick({1, 3, 5});
    f.list.chooseAll();
    f.list.chooseAll();
    f.selectOutput("Elements");

    EXPECT_GE(announced(), 4);
    EXPECT_GE(read(), 3 + 3 + 2);
}

TEST_F(AnnouncedReading, CoversTheMaximaAndMinima)
{
    f.list.chooseAll();
    f.selectOutput("Nodes Min/Max");

    EXPECT_EQ(f.form.OutputsList.Rows(), 1 + 2);
    EXPECT_EQ(announced(), 1);
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
    EXPECT_EQ(announced(), 3 + 1);
    EXPECT_EQ(read(), 4 + 3);
}

TEST_F(AnnouncedReading, CoversTheVectorsOfTheList)
{
    frmPropertyList dialog(strict, f.list);

    dialog.UpdateCollection();

    dialog.GetPropertyList("Output", "Node");
    EXPECT_THAT(itemsOf(dialog), testing::ElementsAre("1 - Total Translation"));
    EXPECT_EQ(announced(), 1);
}

}  // namespace
}  // namespace selection

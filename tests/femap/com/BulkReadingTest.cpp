#include "fake/RealModels.h"
#include "femap/com/Apartment.h"
#include "femap/com/ComForm.h"
#include "femap/com/WrittenModel.h"
#include "standin/StartedStandin.h"
#include "windows/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace comtest
{

using femap::EntityType;

namespace
{

using Lines = std::vector<std::string>;

constexpr std::size_t most = 26;  // of each kind, so that the plain way takes no minutes
constexpr int missing = 987'654;

// Some of the IDs there are, and some that are not there.
std::vector<int> someOf(femap::Application& femap, EntityType type)
{
    const std::unique_ptr<femap::EntitySet> set = femap.feSet();
    set->AddAll(type);
    const std::vector<int> all = set->ids();
    std::vector<int> some;
    for (std::size_t i = 0; i < all.size(); i += 1 + all.size() / most)
        some.push_back(all[i]);
    if (some.size() > 2)
        some.insert(some.begin() + 2, some[1] + 1);  // may be there, too
    some.push_back(missing);
    some.push_back(missing + 1);
    std::sort(some.begin(), some.end());
    some.erase(std::unique(some.begin(), some.end()), some.end());
    return some;
}

// Everything that reads many values, on the model that is open.
Lines readEverything(Reading reading)
{
    ComForm f(reading);
    f.dialog.UpdateCollection();
    femap::Application& femap = f.context.femap();
    f.selectInputs("Nodes", someOf(femap, EntityType::Node));
    f.selectInputs("Elements", someOf(femap, EntityType::Element));
    f.selectInputs("Properties", someOf(femap, EntityType::Property), {}, 4);
    f.selectInputs("Materials", someOf(femap, EntityType::Material));
    f.selectOutputs("Nodes", someOf(femap, EntityType::Node), 3);
    f.selectOutputs("Elements", someOf(femap, EntityType::Element), 3, 3);
    f.selectOutputs("Nodes Min/Max", {}, 2);
    f.selectOutputs("Elements Min/Max", {}, 2);
    for (const char* const row :
         {"Gone\t1\tNode\t987654\tx", "NoMember\t2\tNode\t2\tnonsense",
          "NoIndex\t3\tElem\t2\tnode\ttwo", "NoID\t4\tNode\t\tx", "Beyond\t5\tProp\t1\tpval\t999",
          "NoKind\t6\tNothing\t1\tx", "Case\t7\tNode\t2\tX", "Number\t8\tMatl\t1\tmval\t49"})
        f.form.InputsList.AddItem(row);
    for (const char* const row :
         {"GoneVector\t1\t2\t987654\tOutput", "NoVector\t2\t2\t\tOutput",
          "GoneEntity\t3\t987654\t1\tOutput", "NoMember\t4\t1\t1\tnonsense"})
        f.form.OutputsList.AddItem(row);
    f.shuffleRows();
    f.refreshAll();
    return f.outcome();
}

// Where the second begins to differ, with what stands there in the first; empty for equal ones.
std::string difference(const Lines& plain, const Lines& bulk)
{
    for (std::size_t i = 0; i < std::max(plain.size(), bulk.size()); ++i) {
        const std::string one = i < plain.size() ? plain[i] : "(end)";
        const std::string other = i < bulk.size() ? bulk[i] : "(end)";
        if (one != other)
            return std::to_string(i) + ": " + one + " | " + other;
    }
    return {};
}

struct BulkReading : testing::TestWithParam<std::tuple<const char*, const char*>>
{
    const char* generation() const { return std::get<0>(GetParam()); }
    static std::string pathOf(const std::string& model)
    {
        if (model == "written")
            return writeModel({.nodes = 60,
                               .elements = 60,
                               .properties = 24,
                               .materials = 24,
                               .nodeVectors = 4,
                               .plateVectors = 4},
                              "bulk-written.neu");
        if (model == "panel")
            return panelModel();
        const std::filesystem::path path = std::filesystem::absolute(fake::realModel(model));
        return windows::fromWide(path.lexically_normal().make_preferred().wstring());
    }

    femap::com::Apartment apartment;
};

INSTANTIATE_TEST_SUITE_P(OfEachModel, BulkReading,
                         testing::Combine(testing::Values("--classic", "--modern"),
                                          testing::Values("written", "panel", "callback.NEU",
                                                          "lam1.neu", "ME361.NEU", "C731.NEU",
                                                          "MB361_CFlux.NEU")),
                         [](const auto& model) {
                             std::string name = std::string(std::get<0>(model.param)).substr(2) +
                                                "_" + std::get<1>(model.param);
                             return name.substr(0, name.find('.'));
                         });

}  // namespace

TEST_P(BulkReading, GivesTheRowsAndTheLogOfThePlainWay)
{
    const std::string model = pathOf(std::get<1>(GetParam()));
    if (!std::filesystem::exists(std::filesystem::path(windows::toWide(model))))
        GTEST_SKIP() << "The model " << model << " is not on this machine.";
    StartedStandin standin(std::string(generation()) + " --model \"" + model + '"');

    const Lines plain = readEverything(Reading::OneByOne);
    const Lines bulk = readEverything(Reading::InBulk);

    EXPECT_GT(plain.size(), 300U);
    EXPECT_EQ(difference(plain, bulk), "");
}

}  // namespace comtest

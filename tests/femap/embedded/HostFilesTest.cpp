// Decks that the host writes, results that it reads, and their end.
#include "fake/TemporaryFolder.h"
#include "femap/embedded/HostEntity.h"
#include "femap/embedded/HostLoads.h"
#include "femap/embedded/HostObjects.h"
#include "femap/embedded/MemberFixture.h"
#include "system/Files.h"
#include "system/Platform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

using femap::EntityType;
using femap::ReturnCode;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{

constexpr int brand = 8;

struct FilesFixture : MemberFixture
{
    std::string write(const std::string& name, const std::string& content)
    {
        std::ofstream(sys::toPath(folder.path(name)), std::ios::binary) << content;
        return folder.path(name);
    }
    std::string deck()
    {
        const std::string path = folder.path("model.dat");
        EXPECT_EQ(host.feFileWriteNastran(brand, path), ReturnCode::Ok);
        return sys::DiskFiles().read(path);
    }
    /// What a solver leaves of a run with two output sets.
    std::string twoSets()
    {
        write("model.results.neu", resultsFile("1,\nLimit\n0,1,\n0.,\n1,\nnotes\n"
                                               "2,\nUltimate\n0,1,\n1.5,\n1,\nnotes\n"));
        return write("model.op2", "binary");
    }
    static std::string resultsFile(const std::string& sets)
    {
        return "   -1\n   100\n<NULL>\n8.2,\n   -1\n   -1\n   450\n" + sets + "   -1\n";
    }
    std::vector<int> outputSets() { return host.idsOf(EntityType::OutputSet); }

    fake::TemporaryFolder folder;
};

}  // namespace

TEST(HostDeck, HoldsEveryEntityBelowALineThatNamesItsMembers)
{
    FilesFixture f;
    f.model().functions.put({.id = 3, .title = "Time", .type = 1, .x = {0, 1}, .y = {5.5, 0}});
    f.model().layups.put({.id = 2, .plies = {{3, 0.125}}});

    const std::string deck = f.deck();

    EXPECT_THAT(deck, HasSubstr("$ Deck of the model host for brand 8\n"
                                "$ feNode,ID,x,y,z,defCSys,outCSys,layer,color,type,permBC\n"
                                "7,1.5,2.5,3.5,1,2,3,4,5,2,False,True\n"
                                "$ feElem,"));
    EXPECT_THAT(deck, HasSubstr("\n12,Skin left,1,4,17,2,5,2,0.125,0.5\n"));
    EXPECT_THAT(deck, HasSubstr("\n2,3,0.125\n"));
    EXPECT_THAT(deck, EndsWith("$ feFunction,ID,type,title,x,y\n3,1,Time,2,0,1,1,5.5\n"));
}

TEST(HostDeck, ChangesWithEveryValueThatIsPutAndBackAgain)
{
    FilesFixture f;
    femap::neutral::LoadSet set;
    set.id = 1;
    set.definitions = {{.id = 1, .title = "Force", .dataType = 13, .loadType = 1}};
    set.meshLoads = {{.id = 1, .entityID = 7, .type = 1, .definitionID = 1, .load = {5}}};
    set.nodalTemperatures = {{.entityID = 7, .temp = 20, .definitionID = 2}};
    f.model().loadSets.put(std::move(set));
    f.model().functions.put({.id = 3, .x = {0}, .y = {5.5}});
    const std::string before = f.deck();
    auto& model = f.model();
    double* const numbers[] = {&model.nodes.find(7)->x,
                               &model.elements.find(8)->orient[1],
                               &model.properties.find(12)->pval[1],
                               &model.materials.find(3)->mval[49],
                               &model.functions.find(3)->y[0],
                               &model.loadSets.find(1)->meshLoads[0].load[0],
                               &model.loadSets.find(1)->nodalTemperatures[0].temp};

    for (double* const number : numbers) {
        const double old = *number;
        *number += 1e-9;
        EXPECT_NE(f.deck(), before);
        *number = old;
        EXPECT_EQ(f.deck(), before);
    }
    EXPECT_FALSE(f.host.isModified);
}

TEST(HostDeck, IsWholeWhenItIsLong)
{
    FilesFixture f;
    for (int id = 1; id <= 5000; ++id)
        f.model().nodes.put({.id = id, .x = id + 0.25});

    const std::string deck = f.deck();

    EXPECT_GT(deck.size(), 131'072U);
    for (int id = 1; id <= 5000; id += 17)
        EXPECT_THAT(deck, HasSubstr('\n' + std::to_string(id) + ',' + std::to_string(id) + ".25,"));
}

TEST(HostDeck, IsRefusedWithoutANameAnAnalysisSetOrABrand)
{
    FilesFixture f;
    const std::string path = f.folder.path("model.dat");

    EXPECT_EQ(f.host.feFileWriteNastran(brand, ""), ReturnCode::NoFileName);
    EXPECT_EQ(f.host.feFileWriteNastran(9, path), ReturnCode::BadData);
    EXPECT_EQ(f.host.feFileWriteNastran(-1, path), ReturnCode::BadData);
    EXPECT_EQ(f.host.activeID(EntityType::AnalysisSet), 1);
    EXPECT_EQ(f.host.activate(EntityType::AnalysisSet, 0), ReturnCode::Ok);
    EXPECT_EQ(f.host.feFileWriteNastran(brand, path), ReturnCode::Fail);

    EXPECT_THAT(f.folder.listing(), IsEmpty());
    EXPECT_EQ(f.host.activate(EntityType::AnalysisSet, 2), ReturnCode::Fail);
    EXPECT_EQ(f.host.activate(EntityType::AnalysisSet, 1), ReturnCode::Ok);
    EXPECT_EQ(f.host.feFileWriteNastran(brand, path), ReturnCode::Ok);
}

TEST(HostDeck, TellsWhyItCannotBeWritten)
{
    FilesFixture f;

    EXPECT_EQ(f.host.feFileWriteNastran(brand, f.folder.path("none") + "/model.dat"),
              ReturnCode::FileWriteFailed);

    ASSERT_EQ(f.host.messages.size(), 1U);
    EXPECT_EQ(f.host.messages[0].colour, femap::MessageColour::Error);
    EXPECT_THAT(f.host.messages[0].text, HasSubstr("model.dat"));
}

TEST(HostResults, GetIDsBehindTheOutputSetsThatAreThere)
{
    FilesFixture f;
    const std::string results = f.twoSets();

    EXPECT_EQ(f.host.feFileReadNastranResults(brand, results), ReturnCode::Ok);
    EXPECT_THAT(f.outputSets(), ElementsAre(1, 2));
    EXPECT_TRUE(f.host.isModified);
    f.model().outputSets.put({.id = 10, .title = "Old"});
    f.host.activate(EntityType::OutputSet, 2);
    EXPECT_EQ(f.host.feFileReadNastranResults(brand, results), ReturnCode::Ok);

    EXPECT_THAT(f.outputSets(), ElementsAre(1, 2, 10, 11, 12));
    EXPECT_EQ(f.model().outputSets.find(12)->title, "Ultimate");
    EXPECT_EQ(f.model().outputSets.find(12)->value, 1.5);
    EXPECT_EQ(f.host.activeID(EntityType::OutputSet), 2);
}

TEST(HostResults, MayBeNamedThemselvesAndThenNeedNoFileBeside)
{
    FilesFixture f;
    f.write("model.results.neu", FilesFixture::resultsFile("1,\nLimit\n0,1,\n0.,\n1,\nnotes\n"));

    EXPECT_EQ(f.host.feFileReadNastranResults(brand, f.folder.path("model.results.neu")),
              ReturnCode::Ok);

    EXPECT_THAT(f.outputSets(), ElementsAre(1));
}

TEST(HostResults, BecomeActiveWhereTheHostIsToldSo)
{
    FilesFixture f;
    f.host.activatesResults = true;
    f.model().outputSets.put({.id = 3, .title = "Old"});

    f.host.feFileReadNastranResults(brand, f.twoSets());

    EXPECT_EQ(f.host.activeID(EntityType::OutputSet), 4);
}

TEST(HostResults, ThatCannotBeReadChangeNothing)
{
    FilesFixture f;
    f.model().outputSets.put({.id = 3, .title = "Old"});
    const auto read = [&](const std::string& path) {
        return f.host.feFileReadNastranResults(brand, path);
    };

    EXPECT_EQ(read(""), ReturnCode::NoFileName);
    EXPECT_EQ(f.host.feFileReadNastranResults(99, f.folder.path("none.op2")), ReturnCode::BadData);
    EXPECT_EQ(read(f.folder.path("none.op2")), ReturnCode::FileOpenFailed);
    EXPECT_EQ(read(f.write("alone.op2", "binary")), ReturnCode::BadData);
    f.write("bad.results.neu", FilesFixture::resultsFile("1,\nLimit\n"));
    EXPECT_EQ(read(f.write("bad.op2", "binary")), ReturnCode::BadData);
    f.write("empty.results.neu", "   -1\n   100\n<NULL>\n8.2,\n   -1\n");
    EXPECT_EQ(read(f.write("empty.op2", "binary")), ReturnCode::BadData);
    f.model().outputSets.put({.id = 2'147'483'646});
    EXPECT_EQ(read(f.twoSets()), ReturnCode::BadData);

    EXPECT_THAT(f.outputSets(), ElementsAre(3, 2'147'483'646));
    EXPECT_FALSE(f.host.isModified);
    EXPECT_THAT(f.host.messages.back().text, HasSubstr("bad.results.neu:"));
}

TEST(HostDelete, TakesOutputSetsAndNothingElse)
{
    FilesFixture f;
    f.host.feFileReadNastranResults(brand, f.twoSets());
    f.host.activate(EntityType::OutputSet, 1);
    f.host.isModified = false;

    EXPECT_EQ(f.host.feDelete(EntityType::OutputSet, {5}), ReturnCode::NotExist);
    EXPECT_EQ(f.host.feDelete(EntityType::Node, {7}), ReturnCode::NotAvailable);
    EXPECT_FALSE(f.host.isModified);
    EXPECT_EQ(f.host.feDelete(EntityType::OutputSet, {1, 5}), ReturnCode::Ok);

    EXPECT_THAT(f.outputSets(), ElementsAre(2));
    EXPECT_EQ(f.host.activeID(EntityType::OutputSet), 2);
    EXPECT_TRUE(f.host.isModified);
    EXPECT_NE(f.model().nodes.find(7), nullptr);
}

TEST(HostDelete, TakesSingleVectorsOfAnOutputSet)
{
    FilesFixture f;
    femap::neutral::OutputSet set;
    set.id = 1;
    set.vectors.put({.id = 1, .title = "Total Translation"});
    set.vectors.put({.id = 2, .title = "T1 Translation"});
    f.model().outputSets.put(std::move(set));

    EXPECT_EQ(f.host.feDeleteOutput(2, {1}), ReturnCode::NotExist);
    EXPECT_EQ(f.host.feDeleteOutput(1, {3}), ReturnCode::NotExist);
    EXPECT_FALSE(f.host.isModified);
    EXPECT_EQ(f.host.feDeleteOutput(1, {1}), ReturnCode::Ok);

    EXPECT_THAT(f.host.idsOf(EntityType::OutputVector, 1), ElementsAre(2));
    EXPECT_TRUE(f.host.isModified);
}

TEST(HostActive, FailsForWhatIsNotThere)
{
    FilesFixture f;
    f.model().outputSets.put({.id = 3});

    EXPECT_EQ(f.host.activate(EntityType::OutputSet, 4), ReturnCode::Fail);
    EXPECT_EQ(f.host.activate(EntityType::Node, 7), ReturnCode::Fail);
    EXPECT_EQ(f.host.activate(EntityType::LoadSet, 1), ReturnCode::Fail);
    EXPECT_EQ(f.host.activate(EntityType::OutputSet, 3), ReturnCode::Ok);

    EXPECT_EQ(f.host.activeID(EntityType::OutputSet), 3);
}

TEST(HostModified, ForgetsChangesWhenAModelIsOpened)
{
    FilesFixture f;
    f.host.isModified = true;
    f.host.activate(EntityType::AnalysisSet, 0);

    f.host.openNeutralFile(f.write("model.neu", FilesFixture::resultsFile("")));

    EXPECT_FALSE(f.host.isModified);
    EXPECT_EQ(f.host.activeAnalysisSet, 1);
}

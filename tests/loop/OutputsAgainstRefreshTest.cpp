// CAEOutput's file of random outputs beside the one that "Refresh Values" and "Apply" write.
#include "OutputFixture.h"
#include "fake/GenerateFixture.h"
#include "fake/RandomSeed.h"
#include "femap/NumberText.h"
#include "generate/GenerationDriver.h"
#include "loop/Output.h"
#include "loop/OutputFiles.h"
#include "selection/MassQuantities.h"
#include "selection/OutputList.h"
#include "selection/ValueRefresh.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

namespace loop
{

using femap::EntityType;

namespace
{

constexpr int roundsOfOutputs = 60;
const std::string nodeWord = "Node";
const std::string elementWord = "Elem";

/// A study of random outputs, and the results of one run of it.
class RandomStudy
{
public:
    explicit RandomStudy(unsigned seed) : engine_(seed)
    {
        makeMesh();
        makeVectors();
        const int count = below(4);
        for (int i = 0; i < std::max(count, 1); ++i) {
            f.model().outputSets.put(setWithValues(static_cast<int>(3 * i) + 2 + below(3)));
            run_.push_back(randomResults());
        }
        const std::vector<int> sets = f.femap.idsOf(EntityType::OutputSet);
        rank_ = static_cast<std::size_t>(below(static_cast<int>(sets.size())));
        f.femap.activate(EntityType::OutputSet, sets[rank_]);
        chooseRows();
    }

    /// Takes a few values out of the run, so that rows have no number.
    void loseValues()
    {
        for (ResultSet& set : run_)
            for (ResultVector& vector : set)
                if (below(3) == 0 && vector.values.size() > 1)
                    vector.values.pop_back();
    }

    /// OutputValues.txt as the loop writes it; empty: there is none.
    std::string byLoop()
    {
        generate::GenerateButton_Click(f.context);
        f.files.contents.erase(generate::inWork("OutputValues.txt"));
        const std::vector<int> before = f.femap.idsOf(EntityType::OutputSet);
        const int active = f.femap.activeID(EntityType::OutputSet);
        const Description outputs =
            readDescription(f.system, generate::inWork(""), generate::outputExchange, problems);
        EXPECT_EQ(problems.text(), "");
        form::MainForm form;
        form::Context context(form, f.host, f.system);
        context.application = f.femap.attach();

        readOutputs(context, outputs, resultsFile(), problems);
        if (problems.empty())
            writeOutputValues(context, generate::inWork("OutputValues.txt"));

        EXPECT_EQ(f.femap.idsOf(EntityType::OutputSet), before);
        EXPECT_EQ(f.femap.activeID(EntityType::OutputSet), active);
        return f.files.contents[generate::inWork("OutputValues.txt")];
    }

    /// The same as the form does it in a model that has the results of the run alone.
    std::string byForm()
    {
        f.model().outputSets = {};
        f.femap.feFileReadNastranResults(8, resultsFile());
        f.femap.activate(EntityType::OutputSet, static_cast<int>(rank_) + 1);
        selection::RefreshOutputs_Click(f.context);
        isRefreshed = f.form.status.gravest().empty();
        generate::GenerateButton_Click(f.context);
        return f.files.contents[generate::inWork("OutputValues.txt")];
    }

    generate::GenerateFixture f;
    Problems problems;
    bool isRefreshed = false;

private:
    int below(int bound) { return static_cast<int>(engine_() % static_cast<std::uint64_t>(bound)); }
    double number()
    {
        constexpr double scales[] = {1, 1e-7, 1e12, -3.5, 1.0 / 3};
        return scales[below(5)] * (below(2'000'000) - 1'000'000) / 1000.0;
    }

    void makeMesh()
    {
        for (int i = 0; i < 9; ++i)
            f.model().nodes.put({.id = 10 * i + 1 + below(9),
                                 .x = i % 3 + 0.125 * below(3),
                                 .y = static_cast<double>(i / 3)});
        nodes_ = f.femap.idsOf(EntityType::Node);
        for (const std::size_t corner : {0U, 1U, 3U, 4U})
            f.model().elements.put({.id = static_cast<int>(corner) * 7 + 1 + below(6),
                                    .propID = 1,
                                    .type = femap::elementPlate,
                                    .topology = 4,
                                    .node = {nodes_[corner], nodes_[corner + 1], nodes_[corner + 4],
                                             nodes_[corner + 3]}});
        elements_ = f.femap.idsOf(EntityType::Element);
        f.model().properties.put(
            {.id = 1, .matlID = 1, .type = femap::elementPlate, .pval = {0.5 + below(9)}});
        femap::neutral::Material steel{.id = 1};
        steel.mval[49] = 0.1 + below(100);
        f.model().materials.put(steel);
    }

    void makeVectors()
    {
        const std::string titles[] = {"Total Translation", "T1 - Tr/x", "Größe über-Träger",
                                      "Plate Top VonMises Stress", "X"};
        for (int id : {1, 2, 60031, 7026, 7033})
            if (vectors_.empty() || below(3) != 0)
                vectors_.push_back({id, titles[below(5)], id < 3 ? 7 : 8, {}});
    }

    ResultSet randomResults()
    {
        ResultSet set = vectors_;
        for (ResultVector& vector : set)
            for (const int id : vector.location == 7 ? nodes_ : elements_)
                vector.values.emplace_back(id, number());
        return set;
    }

    femap::neutral::OutputSet setWithValues(int id)
    {
        femap::neutral::OutputSet set;
        set.id = id;
        for (const ResultVector& from : randomResults()) {
            femap::neutral::OutputVector vector;
            vector.id = from.id;
            vector.title = from.title;
            vector.location = static_cast<EntityType>(from.location);
            for (const auto& [entity, value] : from.values) {
                vector.ids.push_back(entity);
                vector.values.push_back(value);
            }
            set.vectors.put(std::move(vector));
        }
        return set;
    }

    std::vector<int> some(const std::vector<int>& ids)
    {
        std::vector<int> chosen;
        for (const int id : ids)
            if (below(2) == 0)
                chosen.push_back(id);
        return chosen;
    }

    void chooseRows()
    {
        for (const ResultVector& vector : vectors_) {
            const bool isOnNodes = vector.location == 7;
            const std::string& word = isOnNodes ? nodeWord : elementWord;
            const std::vector<int> ids = some(isOnNodes ? nodes_ : elements_);
            const std::string id = std::to_string(vector.id);
            if (below(4) != 0)
                selection::UpdateOutputList(f.context, word, &ids, {id});
            if (below(2) == 0)
                selection::UpdateOutputList(f.context, word, nullptr, {id});
        }
        std::vector<std::string> quantities;
        for (std::size_t i = 0; i < std::size(selection::massQuantities); ++i)
            if (below(3) == 0)
                quantities.push_back(std::to_string(i));
        selection::UpdateOutputList(f.context, std::string(selection::massWord), nullptr,
                                    quantities);
    }

    std::string resultsFile()
    {
        std::string text;
        f.system.codePage.encode(textOfResults(run_), text);
        writeText(folder_.path("beam.results.neu"), text);
        return folder_.path("beam.results.neu");
    }

    std::mt19937_64 engine_;
    fake::TemporaryFolder folder_;
    std::vector<int> nodes_;
    std::vector<int> elements_;
    std::vector<ResultVector> vectors_;  // without values
    std::vector<ResultSet> run_;
    std::size_t rank_ = 0;  // of the study's output set
};

}  // namespace

TEST(OutputsOfARun, AreThoseThatRefreshValuesAndApplyWouldWrite)
{
    const unsigned seed = fake::randomSeed();
    int written = 0;
    for (unsigned round = 0; round < roundsOfOutputs; ++round) {
        SCOPED_TRACE(round);
        RandomStudy study(seed + round);

        const std::string byLoop = study.byLoop();

        EXPECT_EQ(study.problems.text(), "");
        EXPECT_EQ(byLoop, study.byForm());
        EXPECT_TRUE(study.isRefreshed);
        written += byLoop.empty() ? 0 : 1;
    }
    EXPECT_GT(written, roundsOfOutputs / 2);
}

TEST(OutputsOfARun, AreWrittenExactlyWhenRefreshValuesReadsEachOfThem)
{
    const unsigned seed = fake::randomSeed();
    int refused = 0;
    for (unsigned round = 0; round < roundsOfOutputs; ++round) {
        SCOPED_TRACE(round);
        RandomStudy study(seed + round);
        study.loseValues();

        const std::string byLoop = study.byLoop();

        const std::string byForm = study.byForm();
        EXPECT_EQ(study.problems.empty(), study.isRefreshed);
        EXPECT_EQ(byLoop, study.isRefreshed ? byForm : "");
        refused += study.isRefreshed ? 0 : 1;
    }
    EXPECT_GT(refused, 0);
}

}  // namespace loop

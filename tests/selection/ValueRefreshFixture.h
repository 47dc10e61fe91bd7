#pragma once

#include "fake/FormFixture.h"
#include "femap/ForwardingApplication.h"
#include "selection/ValueRefresh.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace selection
{

/// Measures numbers that tell every quantity from every other, a thousand more at each measurement.
class MeasuringFemap : public femap::ForwardingApplication
{
public:
    MeasuringFemap(std::unique_ptr<femap::Application> real, fake::FormFixture& fixture,
                   std::vector<std::vector<int>>& measuredElements)
        : ForwardingApplication(std::move(real)),
          fixture_(fixture),
          measuredElements_(measuredElements)
    {}

    std::unique_ptr<femap::EntitySet> feSet() override
    {
        auto set = ForwardingApplication::feSet();
        lastSet_ = set.get();
        return set;
    }
    femap::MassProperties feMeasureMeshMassProp(int elementSet, int coordinateSystem,
                                                bool printResults, bool printDetails) override
    {
        EXPECT_EQ(elementSet, lastSet_->ID());
        EXPECT_EQ(coordinateSystem, 0);
        EXPECT_FALSE(printResults);
        EXPECT_FALSE(printDetails);
        EXPECT_EQ(fixture_.femap.lockCount, 1);
        std::vector<int>& elements = measuredElements_.emplace_back();
        lastSet_->Reset();
        while (const int id = lastSet_->Next())
            elements.push_back(id);
        const double base = 1000.0 * static_cast<double>(measuredElements_.size() - 1);
        return {.length = base + 1,
                .area = base + 2,
                .volume = base + 3,
                .structuralMass = base + 4,
                .nonStructuralMass = base + 5,
                .totalMass = base + 6.5,
                .structuralCG = {base + 10, base + 11, base + 12},
                .nonStructuralCG = {base + 20, base + 21, base + 22},
                .totalCG = {base + 30, base + 31, base + 32},
                .inertia = {base + 40, base + 41, base + 42, base + 43, base + 44, base + 45},
                .inertiaCG = {base + 50, base + 51, base + 52, base + 53, base + 54, base + 55}};
    }

private:
    fake::FormFixture& fixture_;
    std::vector<std::vector<int>>& measuredElements_;
    femap::EntitySet* lastSet_ = nullptr;
};

class ValueRefresh : public testing::Test
{
protected:
    ValueRefresh()
    {
        femap::neutral::Model& model = f.model();
        model.nodes.put({.id = 12, .x = 1.5, .y = -2});
        model.nodes.put({.id = 13, .x = 3.5});
        model.elements.put({.id = 40, .propID = 7, .type = 17, .node = {12, 13}, .orient = {30}});
        model.properties.put({.id = 7, .title = "Shell", .type = 17, .pval = {0.25, 0, 0, 0.125}});
        model.materials.put({.id = 3, .title = "Steel", .mval = {2.1e11}});
        femap::neutral::OutputSet set;
        set.id = 1;
        set.vectors.put({.id = 1,
                         .title = "Total Translation",
                         .minval = -4.5,
                         .maxval = 9,
                         .ids = {12, 13},
                         .values = {0.1, 0.2}});
        set.vectors.put({.id = 60031, .title = "Plate", .ids = {40}, .values = {77}});
        model.outputSets.put(set);
    }

    void fillInputs(const std::vector<std::string>& rows) { fake::fill(f.form.InputsList, rows); }
    void fillOutputs(const std::vector<std::string>& rows) { fake::fill(f.form.OutputsList, rows); }
    std::vector<std::string> inputs() const { return f.rows(f.form.InputsList); }
    std::vector<std::string> outputs() const { return f.rows(f.form.OutputsList); }
    std::string input(int row) const { return f.form.InputsList.text(row, 1); }
    std::string output(int row) const { return f.form.OutputsList.text(row, 1); }

    void measureScripted()
    {
        f.context.application =
            std::make_unique<MeasuringFemap>(std::move(f.context.application), f, measuredElements);
    }
    void expectFemapReleased() const
    {
        EXPECT_EQ(f.femap.lockCount, 0);
        EXPECT_EQ(f.context.lockDepth, 0);
        EXPECT_TRUE(fake::pointersAreDefault(f.form));
        EXPECT_FALSE(f.context.error.isPending());
    }

    fake::FormFixture f;
    std::vector<std::vector<int>> measuredElements;
};

/// A row that cannot be refreshed, and what the log says of it.
struct BadRow
{
    std::string name;  // of the case
    std::string row;
    std::string line;  // in the log
};

}  // namespace selection

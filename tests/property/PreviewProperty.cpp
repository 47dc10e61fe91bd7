#include "fake/GenerateFixture.h"
#include "fake/RandomSeed.h"
#include "generate/GenerationDriver.h"
#include "preview/Preview.h"
#include "property/Generators.h"
#include "system/RuntimeError.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

namespace property
{

namespace
{

using preview::File;
using preview::Mark;
using preview::Preview;
using Folder = std::map<std::string, std::string>;  // contents by name

constexpr int roundsOfPreviews = 60;

// Where the first line is that differs, found the plain way.
std::size_t firstDifference(const std::string& before, const std::string& after)
{
    const auto differing = std::ranges::mismatch(before, after);
    if (differing.in1 == before.end() && differing.in2 == after.end())
        return 0;
    return 1 + static_cast<std::size_t>(std::count(before.begin(), differing.in1, '\n'));
}

// A random study in a folder with a random past.
class RandomPreview
{
public:
    RandomPreview(Random& random, const char* tool) : random_(random)
    {
        fill(tool);
        if (!random_.oneIn(3)) {
            apply();
            fill(tool);
        }
        for (const std::string& name : f_.fileNames())
            age(name);
        if (random_.oneIn(4))
            f_.files.irreplaceable.insert(generate::inWork(random_.of(someTargets)));
    }

    void check()
    {
        const Folder before = f_.workFolder();
        const Preview listed = preview::previewOfApply(f_.context);
        std::map<std::string, Preview> whole;
        for (const File& file : listed.files)
            whole.emplace(file.name(), preview::previewOfApply(f_.context, file.name()));
        EXPECT_EQ(f_.workFolder(), before);

        f_.files.now = 1;
        const std::string problem = apply();

        EXPECT_EQ(listed.problem, problem);
        const Folder after = f_.workFolder();
        std::size_t written = 0;
        for (const auto& [path, time] : f_.files.times)
            written += time == 1 ? 1 : 0;
        const bool isRefused = std::ranges::count(listed.files, Mark::WouldFail, &File::mark) > 0;
        EXPECT_EQ(written, isRefused ? 0 : listed.files.size());
        if (isRefused) {
            EXPECT_EQ(after, before);
            return;
        }
        for (const File& file : listed.files) {
            const std::string name(file.name());
            SCOPED_TRACE(name);
            checkFile(file, whole.at(name), before.contains(name) ? before.at(name) : "",
                      before.contains(name), after.at(name));
        }
    }

private:
    static constexpr const char* someTargets[] = {"CAEInput.txt", "OutputValues.txt", "beam.par",
                                                  "beamControl.txt"};

    static void checkFile(const File& file, const Preview& own, const std::string& before,
                          bool wasThere, const std::string& after)
    {
        EXPECT_EQ(file.mark, !wasThere ? Mark::New : before == after ? Mark::Same : Mark::Changed);
        EXPECT_EQ(file.size, after.size());
        EXPECT_EQ(file.sizeBefore.has_value(), wasThere);
        EXPECT_EQ(file.sizeBefore.value_or(0), before.size());
        EXPECT_EQ(file.firstDifference, wasThere ? firstDifference(before, after) : 0);
        ASSERT_TRUE(own.texts);
        EXPECT_EQ(own.texts->before, before);
        EXPECT_EQ(own.texts->after, after);
    }

    void fill(const char* tool)
    {
        static constexpr const char* solvers[] = {"NENastran", "NXNastran", "", "Other solver"};
        f_.form.Optimizer.Text = tool;
        f_.form.Solver.Text = random_.of(solvers);
        f_.form.CommandLine.Text = random_.oneIn(3) ? "" : "nastran " + randomText(random_, 0, 9);
        f_.form.commandLineIsDue = random_.oneIn(2);
        fillGrid(f_.form.InputsList, randomInputs(random_, 6));
        fillGrid(f_.form.OutputsList, randomOutputs(random_, 6));
        f_.addFunction(random_.between(1, 3), randomText(random_, 0, 5), {0, 1}, {2, 3});
    }
    static void fillGrid(form::ParameterGrid& grid, std::vector<Row> rows)
    {
        for (Row& row : rows)
            if (row[2] == "Function")
                row[3] = " 2";
        grid.setRows(2);
        grid.replaceRows({});
        putInto(grid, rows);
    }

    // A hand that was at the file, or another tool.
    void age(const std::string& name)
    {
        const std::string path = generate::inWork(name);
        std::string& content = f_.files.contents.at(path);
        switch (random_.below(5)) {
        case 0:
            content.insert(content.size() * static_cast<std::size_t>(random_.below(3)) / 2, "x");
            break;
        case 1:
            content.resize(content.size() / 2);
            break;
        case 2:
            f_.files.contents.erase(path);
            break;
        default:
            break;
        }
    }

    // Returns what is told in place of the result.
    std::string apply()
    {
        f_.form.status.clear();
        try {
            generate::GenerateButton_Click(f_.context);
        }
        catch (const sys::RuntimeError& error) {
            return error.description();
        }
        return f_.form.status.gravest();
    }

    Random& random_;
    generate::GenerateFixture f_;
};

class PreviewsOfRandomStudies : public testing::TestWithParam<const char*>
{};

}  // namespace

TEST_P(PreviewsOfRandomStudies, TellWhatApplyThenDoes)
{
    Random random(fake::randomSeed());

    for (int round = 0; round < roundsOfPreviews && !HasFailure(); ++round)
        RandomPreview(random, GetParam()).check();
}

INSTANTIATE_TEST_SUITE_P(OfEachTool, PreviewsOfRandomStudies,
                         testing::Values("Velmar", "Ombra", "KORVA"),
                         [](const auto& tool) { return std::string(tool.param); });

}  // namespace property

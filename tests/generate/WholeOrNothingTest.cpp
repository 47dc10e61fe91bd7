#include "fake/GenerateFixture.h"
#include "generate/GenerationDriver.h"
#include "generate/PreviousSelection.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace generate
{

using testing::AnyOf;
using testing::HasSubstr;

namespace
{

struct ToolFiles
{
    const char* tool;
    std::vector<std::string> inOrderOfCompletion;
};

void PrintTo(const ToolFiles& files, std::ostream* out)
{
    *out << files.tool;
}

const ToolFiles velmar = {
    "Velmar",
    {"FDFemap.bat", "FunctionsInputvalues.txt", "InputValues.txt", "CAEInput.txt",
     "vELMARbeam.desc", "OutputValues.txt", "CAEOutput.txt", "beamControl.txt"}};
const ToolFiles ombra = {"Ombra",
                         {"beam.kvp", "beam.pcs", "beam.par", "InputValues.txt.template",
                          "InputValues.txt", "CAEInput.txt", "OutputValues.txt.template",
                          "OutputValues.txt", "CAEOutput.txt", "beamControl.txt"}};

void fill(GenerateFixture& f, const ToolFiles& files, bool withOldFiles)
{
    f.form.Optimizer.Text = files.tool;
    f.addFunction(5, "curve", {0, 1}, {2, 3});
    f.addInput({"T1", "0.25", "Prop", "1", "pval", "0"});
    f.addInput({"curve", "X-Y Values", "Function", " 5"});
    f.addOutput({"TotalMass", "7.85", "MassTotal", "", "MassProperties"});
    if (!withOldFiles)
        return;
    for (const std::string& name : files.inOrderOfCompletion)
        f.files.contents[inWork(name)] = "old " + name;
    const std::string control = inWork("beamControl.txt");  // was written by this run
    rememberControlFile(f.context, control, f.files.contents.at(control));
}

std::map<std::string, std::string> afterWholeApply(const ToolFiles& files)
{
    GenerateFixture f;
    fill(f, files, false);
    GenerateButton_Click(f.context);
    return f.workFolder();
}

// Whether the handler came to its end.
bool apply(GenerateFixture& f)
{
    try {
        GenerateButton_Click(f.context);
        return true;
    }
    catch (const sys::RuntimeError& error) {
        EXPECT_THAT(error.description(), HasSubstr(inWork("")));
        EXPECT_THAT(error.description(), HasSubstr("No space left on device"));
        return false;
    }
}

class WholeOrNothing : public testing::TestWithParam<ToolFiles>
{};

}  // namespace

TEST_P(WholeOrNothing, ADiskFailureAnywhereLeavesEachFileOldOrNew)
{
    const ToolFiles& files = GetParam();
    const auto complete = afterWholeApply(files);
    ASSERT_EQ(complete.size(), files.inOrderOfCompletion.size());

    int operation = 1;
    for (bool done = false; !done; ++operation) {
        SCOPED_TRACE(operation);
        GenerateFixture f;
        fill(f, files, true);
        f.files.failingOperation = f.files.operations + operation;

        done = apply(f);

        const auto left = f.workFolder();
        EXPECT_EQ(left.size(), complete.size());  // so there is no temporary file either
        std::string states;                       // N: new, o: old
        for (const std::string& name : files.inOrderOfCompletion) {
            ASSERT_THAT(left.at(name), AnyOf(complete.at(name), "old " + name)) << name;
            states += left.at(name) == complete.at(name) ? 'N' : 'o';
        }
        EXPECT_TRUE(std::is_sorted(states.begin(), states.end())) << states;
        EXPECT_EQ(states.back() == 'N', done);
    }
    // Each file is created, flushed, closed and renamed at least.
    EXPECT_GT(operation, static_cast<int>(4 * complete.size()));
}

TEST_P(WholeOrNothing, ADiskFailureAnywhereLeavesNoPartOfAFileThatWasNotThere)
{
    const ToolFiles& files = GetParam();
    const auto complete = afterWholeApply(files);

    int operation = 1;
    for (bool done = false; !done; ++operation) {
        SCOPED_TRACE(operation);
        GenerateFixture f;
        fill(f, files, false);
        f.files.failingOperation = f.files.operations + operation;

        done = apply(f);

        for (const auto& [name, content] : f.workFolder()) {
            ASSERT_TRUE(complete.contains(name)) << name;
            EXPECT_EQ(content, complete.at(name)) << name;
        }
        EXPECT_EQ(f.exists("beamControl.txt"), done);
    }
}

INSTANTIATE_TEST_SUITE_P(EachTool, WholeOrNothing, testing::Values(velmar, ombra),
                         [](const testing::TestParamInfo<ToolFiles>& files) {
                             return std::string(files.param.tool);
                         });

}  // namespace generate

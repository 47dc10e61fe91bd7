#include "fake/NeutralText.h"
#include "femap/neutral/NeutralFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace neutral;
using femap::neutral::Model;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{

// The results of a solver that leaves out the last mark: two whole vectors.
std::string cutResults(int number = 451)
{
    return header() + "   -1\n   " + std::to_string(number) + "\n" + vectorHead(1, 1, "Total") +
           "1,0.5,\n-1,0.,\n" + vectorHead(1, 2, "T1") + "1,2.5,\n2,3.5,\n-1,     0.,          ,\n";
}

std::vector<std::string> remarksAfterReading(const std::string& text, Model& model)
{
    return femap::neutral::readNeutralFile(text, "wing.neu", sys::windows1252(), model);
}

}  // namespace

TEST(NeutralFileCutResults, WholeVectorsWithoutTheLastMarkAreReadAndTold)
{
    for (const std::string end : {"", "\n", "\r\n \n"}) {
        Model model;

        EXPECT_THAT(remarksAfterReading(cutResults() + end, model),
                    ElementsAre("The results may be cut short, for their last end mark is missing; "
                                "compare them with the solver's: wing.neu"));
        const auto& vectors = model.outputSets.find(1)->vectors;
        EXPECT_THAT(vectors.ids(), ElementsAre(1, 2));
        EXPECT_EQ(vectors.find(2)->maxval, 3.5);
    }
}

TEST(NeutralFileCutResults, ResultsWithTheirLastMarkAreNotRemarkedOn)
{
    Model model;

    EXPECT_THAT(remarksAfterReading(cutResults() + "   -1\n", model), IsEmpty());
    EXPECT_THAT(remarksAfterReading(completeFile(), model), IsEmpty());
}

TEST(NeutralFileCutResults, ACutInsideAVectorIsRefused)
{
    const std::string whole = cutResults();
    const std::string refusal = "the file is cut: the block 451 has no end";
    const std::size_t secondVector = whole.rfind("1,2,1,");

    for (std::size_t size = secondVector + 1; size < whole.rfind("-1,") + 2; ++size) {
        const std::string text = whole.substr(0, size);
        EXPECT_EQ(errorOf(text), error(lineCount(text) + (text.ends_with('\n') ? 0 : 1), refusal))
            << text.substr(secondVector);
    }
}

TEST(NeutralFileCutResults, ABlockOfResultsWithoutAnyVectorIsRefused)
{
    EXPECT_THAT(errorOf(header() + "   -1\n   451\n"), HasSubstr("the block 451 has no end"));
}

TEST(NeutralFileCutResults, AnotherBlockWithoutItsMarkIsRefused)
{
    EXPECT_THAT(errorOf(cutResults(1051)), HasSubstr("the block 1051 has no end"));
    EXPECT_THAT(errorOf(header() + "   -1\n   403\n1,0,0,1,46,0,0,0,0,0,0,1.,2.,3.,0,0,\n"),
                HasSubstr("the block 403 has no end"));
    EXPECT_THAT(errorOf("   -1\n   100\n<NULL>\n9.3,\n"), HasSubstr("the block 100 has no end"));
}

TEST(NeutralFileCutResults, CutResultsWithoutAHeaderAreNoNeutralFile)
{
    EXPECT_THAT(errorOf("   -1\n   451\n" + vectorHead(1, 1, "Total") + "1,0.5,\n-1,0.,\n"),
                HasSubstr("this is no FEMAP neutral file, or its header is missing"));
}

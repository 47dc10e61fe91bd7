#include "fake/NeutralText.h"
#include "femap/neutral/NeutralFile.h"
#include "system/RuntimeError.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace neutral;
using femap::neutral::Model;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace
{

const std::string oneNode = "7,0,0,1,46,0,0,0,0,0,0,1.,2.,3.,0,0,\n";
const std::string otherNode = "5,0,0,1,46,0,0,0,0,0,0,4.,5.,6.,0,0,\n";

std::string replaced(std::string text, const std::string& what, const std::string& with)
{
    for (std::size_t at = 0; (at = text.find(what, at)) != std::string::npos; at += with.size())
        text.replace(at, what.size(), with);
    return text;
}

bool isComplete(const Model& model)
{
    return model.nodes.size() == 4 && model.elements.size() == 1 && model.properties.size() == 1 &&
           model.materials.size() == 1 && model.functions.size() == 1 &&
           model.loadSets.size() == 1 && model.outputSets.size() == 1 &&
           model.outputSets.find(1)->vectors.size() == 1;
}

}  // namespace

TEST(NeutralFileStructure, ACompleteFileFillsEveryTable)
{
    const Model model = read(completeFile());

    EXPECT_TRUE(isComplete(model));
}

TEST(NeutralFileStructure, BlocksComeInAnyOrderAndRepeatAndMayBeEmpty)
{
    const Model model = read(block(403, otherNode) + header() + block(404, "") + block(403, "") +
                             block(404, quad(2, "5,7,5,7")) + block(403, oneNode));

    EXPECT_THAT(model.nodes.ids(), ElementsAre(5, 7));
    EXPECT_THAT(model.elements.ids(), ElementsAre(2));
}

TEST(NeutralFileStructure, EntitiesInAnyOrderComeOutAscendingAndTheLastOfAnIDStays)
{
    const std::string again = "7,0,0,1,46,0,0,0,0,0,0,9.,2.,3.,0,0,\n";

    const Model model = read(header() + block(403, oneNode + otherNode + again));

    EXPECT_THAT(model.nodes.ids(), ElementsAre(5, 7));
    EXPECT_EQ(model.nodes.find(7)->x, 9);
}

TEST(NeutralFileStructure, UnknownBlocksAndConstraintsAreSkippedWhateverTheyHold)
{
    const std::string odd = "text without numbers\n-1,\n   -1,\n  -1\n\n   403\n";

    const Model model = read(header() + block(999, odd) + block(506, odd) + block(403, oneNode));

    EXPECT_THAT(model.nodes.ids(), ElementsAre(7));
}

TEST(NeutralFileStructure, AnythingMayStandBeforeTheFirstBlock)
{
    EXPECT_TRUE(isComplete(read("exported by some program\n\n-1\n" + completeFile())));
}

TEST(NeutralFileStructure, CommentsOfLibrariesAndEmptyLinesMayStandBetweenBlocks)
{
    const Model model = read(header() + "$COM a library of nodes\n\n  \r\n" + block(403, oneNode) +
                             "$COM the end\n\n");

    EXPECT_THAT(model.nodes.ids(), ElementsAre(7));
}

TEST(NeutralFileStructure, AnotherLineBetweenBlocksIsRefused)
{
    EXPECT_EQ(errorOf(header() + "1,0,0,1\n" + block(403, oneNode)),
              error(6, "this line stands between two blocks"));
}

TEST(NeutralFileStructure, ABlockWithoutItsEndMarkIsRefusedAtTheNextOne)
{
    const std::string text = header() + "   -1\n   403\n" + oneNode + block(404, "");

    EXPECT_EQ(errorOf(text), error(10, "this line stands between two blocks"));
}

TEST(NeutralFileStructure, TheNumberOfABlockMayHaveAnyIndent)
{
    const Model model = read(header() + "   -1\n403\n" + oneNode + "   -1\n   -1\n       403  \n" +
                             otherNode + "   -1\n");

    EXPECT_THAT(model.nodes.ids(), ElementsAre(5, 7));
}

TEST(NeutralFileStructure, ABlockNeedsANumber)
{
    EXPECT_EQ(errorOf(header() + "   -1\nnodes\n   -1\n"),
              error(7, "field 1 is not a whole number"));
    EXPECT_EQ(errorOf(header() + "   -1\n   -1\n"), error(7, "a block has no number"));
    EXPECT_EQ(errorOf(header() + "   -1\n\n   -1\n"), error(7, "field 1 is missing"));
    EXPECT_EQ(errorOf(header() + "   -1\n403 404\n   -1\n"),
              error(7, "the line holds more than fits"));
    EXPECT_EQ(errorOf(header() + "   -1\n"), error(6, "the file is cut: a block has no number"));
}

TEST(NeutralFileStructure, LinesMayEndInCarriageReturnAndLineFeed)
{
    const Model model = read(replaced(completeFile(), "\n", "\r\n"));

    EXPECT_TRUE(isComplete(model));
    EXPECT_EQ(model.materials.find(1)->title, "Steel");
}

TEST(NeutralFileStructure, TheLastLineNeedsNoEnd)
{
    std::string text = completeFile();
    text.pop_back();

    EXPECT_TRUE(isComplete(read(text)));
}

TEST(NeutralFileStructure, BlanksAloneSeparateNumbersToo)
{
    EXPECT_TRUE(isComplete(read(replaced(completeFile(), ",", "  "))));
    EXPECT_TRUE(isComplete(read(replaced(completeFile(), ",", " , "))));
    EXPECT_TRUE(isComplete(read(replaced(completeFile(), ",\n", "\n"))));
    EXPECT_TRUE(isComplete(read(replaced(completeFile(), ",", ",\t"))));
}

TEST(NeutralFileStructure, TitlesAreDecodedTrimmedAtTheEndAndEmptyWhenNull)
{
    const std::string functions =
        "1,0,\n  Tr\xE4ger \xD8"
        "12   \t\r\n-1,\n2,0,\n<NULL>  \n-1,\n"
        "3,0,\n\n-1,\n4,0,\n" +
        std::string(300, ' ') + "\n-1,\n";

    const Model model = read(header() + block(420, functions));

    EXPECT_EQ(model.functions.find(1)->title, "  Träger Ø12");
    EXPECT_THAT(model.functions.find(2)->title, IsEmpty());
    EXPECT_THAT(model.functions.find(3)->title, IsEmpty());
    EXPECT_THAT(model.functions.find(4)->title, IsEmpty());
}

class NeutralFileVersion : public testing::TestWithParam<const char*>
{};

class NeutralFileUnknownVersion : public testing::TestWithParam<const char*>
{};

TEST_P(NeutralFileVersion, IsRead)
{
    EXPECT_THAT(read(header(GetParam()) + block(403, oneNode)).nodes.ids(), ElementsAre(7));
}

INSTANTIATE_TEST_SUITE_P(NeutralFile, NeutralFileVersion,
                         testing::Values("4.4", "5", "6.", "7.", "8.2", "9.1", "9.2", "9.3", "10.0",
                                         "11.", "11.2", " 8.2 "));

TEST_P(NeutralFileUnknownVersion, IsRefusedAndNamed)
{
    EXPECT_EQ(errorOf(header(GetParam()) + block(403, oneNode)),
              error(4, "the file has the version " + std::string(GetParam()) +
                           ", but only the versions 4.4 to 11 can be read"));
}

INSTANTIATE_TEST_SUITE_P(NeutralFile, NeutralFileUnknownVersion,
                         testing::Values("4.3", "3.1", "0", "-8.2", "12", "12.1", "2019.1"));

TEST(NeutralFileStructure, ALaterHeaderIsCheckedAsWell)
{
    EXPECT_THAT(read(header("8.2") + header("11.") + block(403, oneNode)).nodes.ids(),
                ElementsAre(7));
    EXPECT_THAT(errorOf(header() + header("13.")),
                HasSubstr("wing.neu:9: the file has the version 13"));
}

TEST(NeutralFileStructure, TheHeaderIsATitleAndAVersion)
{
    EXPECT_EQ(errorOf(block(100, "")), error(3, "the block ends in the middle of a record"));
    EXPECT_EQ(errorOf(block(100, "Wing\n")), error(4, "the block ends in the middle of a record"));
    EXPECT_EQ(errorOf(block(100, "Wing\nnine\n")), error(4, "field 1 is not a number"));
    EXPECT_EQ(errorOf(block(100, "Wing\n9.3,\n0,\n")),
              error(5, "the header has more lines than a title and a version"));
}

TEST(NeutralFileStructure, AFileWithoutHeaderIsNoNeutralFile)
{
    const std::string problem = "this is no FEMAP neutral file, or its header is missing";

    EXPECT_EQ(errorOf(""), error(1, problem));
    EXPECT_EQ(errorOf("\n\n"), error(1, problem));
    EXPECT_EQ(errorOf("solid cube\nfacet normal\n"), error(1, problem));
    EXPECT_EQ(errorOf(block(403, oneNode)), error(1, problem));
}

TEST(NeutralFileStructure, AFileThatDoesNotFitLeavesTheModelAsItWas)
{
    Model model = read(completeFile());
    const std::string wrong = header() + block(403, oneNode) + block(404, "1,2,\n");

    EXPECT_THROW(readInto(model, wrong), sys::RuntimeError);

    EXPECT_TRUE(isComplete(model));
    EXPECT_EQ(model.nodes.find(7), nullptr);
}

TEST(NeutralFileStructure, AFileCutAfterAnyLineIsRefusedOrGivesASmallerModel)
{
    const std::string text = completeFile();
    int refused = 0;
    int fitting = 0;
    for (std::size_t cut = text.find('\n'); cut + 1 < text.size(); cut = text.find('\n', cut + 1)) {
        const std::string part = text.substr(0, cut + 1);
        const std::string error = errorOf(part);
        const std::string cutHere =
            "wing.neu:" + std::to_string(lineCount(part)) + ": the file is cut";
        if (error.empty())
            ++fitting;
        else if (error.find(cutHere) == 0)
            ++refused;
        else
            ADD_FAILURE() << error;
    }

    const int blocks = 10;
    const int resultsWithoutTheLastMark = 1;
    EXPECT_EQ(fitting, blocks - 1 + resultsWithoutTheLastMark);
    EXPECT_EQ(refused, lineCount(text) - blocks - resultsWithoutTheLastMark);
}

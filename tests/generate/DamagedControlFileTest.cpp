#include "fake/GenerateFixture.h"
#include "generate/ControlFile.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace generate
{

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace
{

const std::string inputRow = "XAtNode1\t1\tNode\t1\tx\t\r\n";
const std::string otherInput = "YAtNode1\t1\tNode\t1\ty\t\r\n";
const std::string outputRow = "TotalMass\t7.85\tMassTotal\t\tMassProperties\r\n";
const std::string wholeFile = inputRow + otherInput + "\r\n" + outputRow;

std::string withoutCarriageReturns(std::string text)
{
    std::erase(text, '\r');
    return text;
}

std::string withCarriageReturnsOnly(std::string text)
{
    std::erase(text, '\n');
    return text;
}

std::string inUtf16(const std::string& text)
{
    std::string result = "\xFF\xFE";
    for (const char c : text) {
        result += c;
        result += '\0';
    }
    return result;
}

struct Content
{
    const char* name;
    std::string bytes;
    std::string told;  // of the first line concerned
};

void PrintTo(const Content& content, std::ostream* out)
{
    *out << content.name;
}

std::string nameOfContent(const testing::TestParamInfo<Content>& content)
{
    return content.param.name;
}

// A control file that was read at the start, and what "Apply" makes of it.
class ReadContent : public testing::TestWithParam<Content>
{
protected:
    GenerateFixture f;
    const std::string path = inWork("beamControl.txt");

    void load()
    {
        f.files.contents[path] = GetParam().bytes;
        Load_Click(f.context, f.femap.modelName);
    }
};

class WholeControlFile : public ReadContent
{};

class DamagedControlFile : public ReadContent
{};

}  // namespace

TEST_P(WholeControlFile, IsReadWithoutAWordAndReplacedWithoutACopy)
{
    load();
    Save_Config(f.context, f.progress);

    EXPECT_THAT(f.messages(), IsEmpty());
    EXPECT_EQ(f.form.StatusLine.Caption, "");
    EXPECT_THAT(f.fileNames(), ElementsAre("beamControl.txt"));
}

INSTANTIATE_TEST_SUITE_P(
    Is, WholeControlFile,
    testing::Values(Content{"OneAsItIsWritten", wholeFile, ""},
                    Content{"OneWithoutOutputs", inputRow + "\r\n", ""},
                    Content{"OneEmptyLine", "\r\n", ""},
                    Content{"OneWithLineFeedsAlone", withoutCarriageReturns(wholeFile), ""},
                    Content{"OneBehindAMarkOfUtf8", "\xEF\xBB\xBF" + wholeFile, ""},
                    Content{"OneWithLettersOfTheCodePage",
                            "Tr\xE4ger\t1\tNode\t1\tx\t\r\n\r\n" + outputRow, ""},
                    Content{"OneWithAnEmptyLineForEachGrid", "\r\n\r\n" + outputRow, ""},
                    Content{"OneOfLoadsAndFunctions",
                            "F\t 1\tLoadMesh\t 1\t0\t0\r\nG\t 1\tLoadGeom\t 1\t0\t0\r\n"
                            "H\t 1\tLoadETemp\t 1\t0\t0\r\nI\t 1\tLoadNTemp\t 1\t0\t0\r\n"
                            "ramp\tX-Y Values\tFunction\t 5\t\t\r\n\r\n"
                            "m\t1\t1\t1\tmaxval\r\nn\t1\t1\t1\tminval\r\n",
                            ""}),
    nameOfContent);

TEST(ControlFileBehindAMarkOfUtf8, HasItsFirstName)
{
    GenerateFixture f;
    f.files.contents[inWork("beamControl.txt")] = "\xEF\xBB\xBF" + wholeFile;

    Load_Click(f.context, f.femap.modelName);

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("XAtNode1", "YAtNode1"));
}

TEST_P(DamagedControlFile, IsToldWithItsLineAndKeptAsACopy)
{
    const std::string told =
        "The stored selection did not come back as it was: " + GetParam().told +
        ". \"Apply\" keeps a copy: " + path;

    load();

    EXPECT_EQ(f.form.StatusLine.Caption, told);
    EXPECT_THAT(f.messages(), ElementsAre(femap::cutToMessage(told)));
    EXPECT_THAT(f.log(), Contains("DEBUG: " + told));
    EXPECT_FALSE(f.context.error.isPending());

    f.form.status.clear();
    Save_Config(f.context, f.progress);

    EXPECT_EQ(f.files.contents.at(inWork("beamControl.previous.txt")), GetParam().bytes);
    EXPECT_EQ(f.form.StatusLine.Caption,
              "The selection that was stored there before is kept as beamControl.previous.txt");
}

INSTANTIATE_TEST_SUITE_P(
    Has, DamagedControlFile,
    testing::Values(
        Content{"AnEmptyLineAmongTheInputs", inputRow + "\r\n" + otherInput + "\r\n" + outputRow,
                "line 3: an input stands among the outputs; 1 more in the log"},
        Content{"ALineOfBlanks", inputRow + "   \r\n" + outputRow,
                "line 2: the kind of the row is unknown; 2 more in the log"},
        Content{"CarriageReturnsOnly", withCarriageReturnsOnly(wholeFile),
                "line 1: control characters became blanks; 1 more in the log"},
        Content{"TextInUtf16", inUtf16(inputRow + "\r\n"),
                "line 1: the text is UTF-16, not in the code page; 3 more in the log"},
        Content{"LettersBehindAMarkOfUtf8",
                "\xEF\xBB\xBF" + inputRow + "Träger\t1\tNode\t1\tx\t\r\n\r\n" + outputRow,
                "line 2: the text is UTF-8, not in the code page"},
        Content{"ARowOfAnUnknownKind", inputRow + "a\t1\tCurve\t1\tx\t\r\nb\t1\r\n\r\n" + outputRow,
                "line 2: the kind of the row is unknown; 1 more in the log"},
        Content{"OutputsOnly", "\r\n" + outputRow,
                "line 2: an output stands among the inputs; 1 more in the log"},
        Content{"NoEndOfTheInputs", inputRow + otherInput,
                "line 3: the end of the inputs is missing"},
        Content{"ACutWithinTheInputs", inputRow + "YAtNode1\t1\tNo",
                "line 2: the file ends within this line; 1 more in the log"},
        Content{"ACutWithinTheOutputs", inputRow + "\r\nTotalMass\t7.85\tMassTotal\t\tMassProper",
                "line 3: the file ends within this line"},
        Content{"ACutWithinAnIndex", "TAtProp1\t1\tProp\t1\tpval\t1",
                "line 1: the file ends within this line; 1 more in the log"},
        Content{"LinesBehindTheOutputs", wholeFile + "\r\n" + outputRow,
                "line 6: the line stands behind the end of the outputs"},
        Content{"ARowWithoutAName", inputRow + "\t1\tNode\t1\tx\t\r\n\r\n" + outputRow,
                "line 2: the row has no name"},
        Content{"ARowWithTooFewCells", "a\t1\tNode\t1\tx\r\n\r\n" + outputRow,
                "line 1: cells of the row are missing"},
        Content{"ARowWithTooManyCells", "a\t1\tNode\t1\tx\t\tz\r\n\r\n" + outputRow,
                "line 1: the row has too many cells"},
        Content{"AControlCharacter",
                "a\x01"
                "b\t1\tNode\t1\tx\t\r\n\r\n" +
                    outputRow,
                "line 1: control characters became blanks"}),
    nameOfContent);

TEST(EmptyControlFile, IsToldAndNotWorthACopy)
{
    GenerateFixture f;
    f.files.contents[inWork("beamControl.txt")] = "";

    Load_Click(f.context, f.femap.modelName);
    Save_Config(f.context, f.progress);

    EXPECT_THAT(f.messages(), ElementsAre(HasSubstr("line 1: the file is empty")));
    EXPECT_THAT(f.fileNames(), ElementsAre("beamControl.txt"));
}

TEST(DamagedControlFileInTheLog, HasALineForEachLineConcerned)
{
    GenerateFixture f;
    f.files.contents[inWork("beamControl.txt")] =
        inputRow + "a\r\n\r\n" + otherInput + outputRow + "\r\nb\r\n\r\nc\r\n";

    const auto log = f.logOf([&] { Load_Click(f.context, f.femap.modelName); });

    EXPECT_THAT(
        log,
        testing::IsSupersetOf(
            {"DEBUG: Line 2 of the control file: the kind of the row is unknown",
             "DEBUG: Line 4 of the control file: an input stands among the outputs",
             "DEBUG: Line 7 of the control file: the line stands behind the end of the outputs",
             "DEBUG: Line 9 of the control file: the line stands behind the end of the "
             "outputs"}));
    EXPECT_THAT(f.messages(), ElementsAre(HasSubstr("line 2: the kind of the row is unknown; 3 "
                                                    "more in the log")));
}

TEST(DamagedControlFileInTheLog, IsReadAlsoWhenFemapShowsNoMessage)
{
    GenerateFixture f;
    f.watchFemap().failAt("feAppMessage", "refused");
    f.files.contents[inWork("beamControl.txt")] = inputRow;

    Load_Click(f.context, f.femap.modelName);

    EXPECT_THAT(f.names(f.form.InputsList), ElementsAre("XAtNode1"));
    EXPECT_THAT(f.form.StatusLine.Caption, HasSubstr("line 2: the end of the inputs is missing"));
    EXPECT_THAT(f.log(), Not(Contains("ERROR: refused")));
}

}  // namespace generate

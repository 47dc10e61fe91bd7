#include "preview/LinesWithChanges.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using testing::ElementsAre;
using testing::IsEmpty;

namespace preview
{
namespace
{

// "+3 text" for each line.
std::vector<std::string> shown(const std::string& before, const std::string& after)
{
    const Texts texts{before, after};
    std::vector<std::string> lines;
    for (const SignedLine& line : linesWithChanges(texts))
        lines.push_back(static_cast<char>(line.sign) + std::to_string(line.number) + ' ' +
                        std::string(line.text));
    return lines;
}

TEST(LinesWithChanges, AreAllOfTheTextWithWhatIsRemovedWhereItWas)
{
    EXPECT_THAT(shown("a\r\nb\r\nc\r\nd\r\n", "a\r\nB\r\nnew\r\nd\r\n"),
                ElementsAre(" 1 a", "-2 b", "-3 c", "+2 B", "+3 new", " 4 d"));
}

TEST(LinesWithChanges, CountWhatStaysAsItIsCountedAfterwards)
{
    EXPECT_THAT(shown("out\r\na\r\nb\r\n", "a\r\nb\r\nin\r\n"),
                ElementsAre("-1 out", " 1 a", " 2 b", "+3 in"));
}

TEST(LinesWithChanges, HaveARemarkWhereALineEndsOtherwise)
{
    EXPECT_THAT(shown("a\n", "a\r\n"),
                ElementsAre("-1 a", "\\0 This line does not end in CR LF", "+1 a"));
}

TEST(LinesWithChanges, OfANewFileAreAdded)
{
    EXPECT_THAT(shown("", "a\r\nb\r\n"), ElementsAre("+1 a", "+2 b"));
    EXPECT_THAT(shown("", ""), IsEmpty());
}

TEST(LinesWithChanges, OfTextsThatAreTheSameHaveNoSign)
{
    EXPECT_THAT(shown("a\r\n\r\n", "a\r\n\r\n"), ElementsAre(" 1 a", " 2 "));
}

}  // namespace
}  // namespace preview

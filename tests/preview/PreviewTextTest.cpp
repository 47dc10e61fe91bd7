#include "preview/PreviewText.h"

#include <gtest/gtest.h>

#include <string>

namespace preview
{
namespace
{

// What is written of a file "a.txt" with these texts.
std::string difference(const std::string& before, const std::string& after,
                       Mark mark = Mark::Changed)
{
    const Preview preview = {{}, "", Texts{before, after}};
    std::string text;
    writeDifference(preview, {.path = "/models/a.txt", .mark = mark}, sys::windows1252(),
                    [&](std::string_view piece) { text += piece; });
    return text;
}

std::string numbers(int first, int last)
{
    std::string text;
    for (int i = first; i <= last; ++i)
        text += std::to_string(i) + "\r\n";
    return text;
}

TEST(PreviewText, HasALineForEachFile)
{
    const std::string folder = std::string("/work") + sys::pathSeparator;
    Preview preview;
    preview.files = {
        {.path = folder + "new.txt", .mark = Mark::New, .size = 5},
        {.path = folder + "same.txt", .mark = Mark::Same, .size = 5, .sizeBefore = 5},
        {.path = folder + "changed.txt",
         .mark = Mark::Changed,
         .size = 5,
         .sizeBefore = 7,
         .firstDifference = 2},
        {.path = folder + "unread.txt",
         .mark = Mark::Changed,
         .size = 5,
         .sizeBefore = 7,
         .reason = "Permission denied"},
        {.path = folder + "fails.txt", .size = 5, .sizeBefore = 7, .reason = "it is a folder"},
    };

    EXPECT_EQ(textOf(preview),
              "new 5 new.txt\n"
              "same 5 same.txt\n"
              "changed 5 changed.txt: 7 bytes before, first difference in line 2\n"
              "changed 5 unread.txt: 7 bytes before: Permission denied\n"
              "would-fail 5 fails.txt: it is a folder\n");
    preview.files.clear();
    preview.problem = "it is a folder";
    EXPECT_EQ(textOf(preview), "\"Apply\" would tell: it is a folder\n");
}

TEST(UnifiedDifference, HasThreeLinesAroundEachChange)
{
    std::string after = numbers(1, 20);
    after.replace(after.find("10\r"), 2, "ten");
    after += "\xE4\r\n";

    EXPECT_EQ(difference(numbers(1, 20), after),
              "--- a.txt\n+++ a.txt\n"
              "@@ -7,7 +7,7 @@\n 7\n 8\n 9\n-10\n+ten\n 11\n 12\n 13\n"
              "@@ -18,3 +18,4 @@\n 18\n 19\n 20\n+\u00e4\n");
}

TEST(UnifiedDifference, TakesChangesThatAreNearTogether)
{
    std::string after = numbers(1, 12);
    after.replace(after.find("3\r"), 1, "three");
    after.replace(after.find("10\r"), 4, "");

    EXPECT_EQ(difference(numbers(1, 12), after),
              "--- a.txt\n+++ a.txt\n"
              "@@ -1,12 +1,11 @@\n 1\n 2\n-3\n+three\n 4\n 5\n 6\n 7\n 8\n 9\n-10\n 11\n 12\n");
}

TEST(UnifiedDifference, OfANewFileAddsAllOfIt)
{
    EXPECT_EQ(difference("", numbers(1, 2), Mark::New),
              "--- /dev/null\n+++ a.txt\n@@ -0,0 +1,2 @@\n+1\n+2\n");
    EXPECT_EQ(difference("", "", Mark::New), "--- /dev/null\n+++ a.txt\n");
}

TEST(UnifiedDifference, TellsLinesThatEndOtherwise)
{
    EXPECT_EQ(difference("a\nb", "a\r\nb\r\n"),
              "--- a.txt\n+++ a.txt\n@@ -1,2 +1,2 @@\n"
              "-a\n\\ This line does not end in CR LF\n-b\n\\ This line does not end in CR LF\n"
              "+a\n+b\n");
}

TEST(UnifiedDifference, IsTheLineOfAFileThatHasNone)
{
    EXPECT_EQ(difference("a\r\n", "a\r\n", Mark::Same), "");
    EXPECT_EQ(difference("", "a\r\n", Mark::WouldFail), "would-fail 0 a.txt\n");

    std::string text;
    writeDifference({}, {.path = "a.txt", .mark = Mark::Same, .size = 12'000'000},
                    sys::windows1252(), [&](std::string_view piece) { text += piece; });
    EXPECT_EQ(text, "same 12000000 a.txt\n") << "a long file has no texts";
}

}  // namespace
}  // namespace preview

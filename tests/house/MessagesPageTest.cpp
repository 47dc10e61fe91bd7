#include "Messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using house::File;
using house::literalsIn;
using house::MessagePart;
using house::messagePartsIn;
using house::messagesOf;
using house::partsOf;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{

std::vector<File> filesWithMessages()
{
    // What fetches many values at once shows nothing: the plain way takes over and has its own say.
    return house::filesThat([](const std::string& path) {
        return house::isProduct(path) && !path.starts_with("standin/") &&
               !path.starts_with("femap/com/Bulk");
    });
}

std::string page()
{
    return house::textOf("docs/messages.md");
}

bool contains(const std::vector<std::string>& texts, const std::string& part)
{
    return std::ranges::any_of(
        texts, [&](const std::string& text) { return text.find(part) != std::string::npos; });
}

// All of them, one to a line.
std::string joined(const std::vector<std::string>& texts)
{
    std::string all;
    for (const std::string& text : texts)
        all += "\n  " + text;
    return all;
}

TEST(PageOfMessages, HasEveryMessageThatTheProgramsCanShow)
{
    const std::vector<std::string> messages = messagesOf(page());

    std::vector<std::string> missing;
    for (const File& file : filesWithMessages())
        for (const MessagePart& part : messagePartsIn(file))
            if (!contains(messages, part.text))
                missing.push_back(part.place + ": " + part.text);

    EXPECT_TRUE(missing.empty()) << "These belong into a table of docs/messages.md:"
                                 << joined(missing);
}

TEST(PageOfMessages, HasNoMessageThatIsGone)
{
    std::vector<std::string> literals;
    for (const File& file : filesWithMessages())
        std::ranges::copy(literalsIn(file.text), std::back_inserter(literals));

    std::vector<std::string> gone;
    for (const std::string& message : messagesOf(page()))
        for (const std::string& part : partsOf(message))
            if (!contains(literals, part))
                gone.push_back(part);

    EXPECT_TRUE(gone.empty()) << "No source has these texts of docs/messages.md any more:"
                              << joined(gone);
}

TEST(PageOfMessages, SaysWhatToDoForEach)
{
    std::vector<std::string> broken;
    for (const std::string& line : house::linesOf(page()))
        if (line.starts_with("| `") &&
            std::ranges::count(line.substr(std::min(line.find("` |"), line.size())), '|') != 3)
            broken.push_back(line);

    EXPECT_THAT(broken, IsEmpty()) << "A row holds the message, what happened and what to do";
    EXPECT_GT(messagesOf(page()).size(), 60U);
}

TEST(MessageParts, AreTheTextsInCallsThatMakeMessages)
{
    const File file = {"a/A.cpp",
                       "// RuntimeError(\"not this one\")\n"
                       "constexpr int million = 1'000'000;\n"
                       "throw RuntimeError(number, path + \" could not \"\n"
                       "    \"be \\\"read\\\": \" + why(\"x y\"));\n"
                       "logDebug(log, \"nor this one\");\n"
                       "fail(\"one\");\n"
                       "const char c = '\"';\n"
                       "status.tellHint(\n"
                       "    \"on the status line\");\n"};

    std::vector<std::string> texts;
    for (const MessagePart& part : messagePartsIn(file))
        texts.push_back(part.place + " " + part.text);

    EXPECT_THAT(texts, ElementsAre("a/A.cpp:3 could not be \"read\":", "a/A.cpp:4 x y",
                                   "a/A.cpp:9 on the status line"));
}

TEST(MessagesOfAPage, AreTheFirstCellsAndBreakAtWhatVaries)
{
    EXPECT_THAT(messagesOf("# Head\n| Message | a | b |\n|---|---|---|\n"
                           "| `… was lost: …` | why | what |\ntext\n"),
                ElementsAre("… was lost: …"));
    EXPECT_THAT(partsOf("… was lost: …. Look there … one …"),
                ElementsAre("was lost", "Look there"));
}

}  // namespace

#include "probe/Report.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <random>
#include <utility>

namespace probe
{

namespace
{

struct VerdictWord
{
    Verdict verdict;
    std::string_view word;
    std::string_view meaning;
    bool isToLookAt = false;
};

// Those in capitals are what the report is for.
// clang-format off
constexpr VerdictWord verdictWords[] = {
    {Verdict::Same,     "same",      "as the tool believes"},
    {Verdict::Found,    "found",     "a fact that the tool did not know before"},
    {Verdict::Differs,  "DIFFERS",   "FEMAP is not what the tool believes", true},
    {Verdict::Absent,   "ABSENT",    "FEMAP lacks what the tool believes to be there", true},
    {Verdict::Refused,  "REFUSED",   "a call failed of which the tool believes that it works", true},
    {Verdict::NotTried, "not tried", "there was nothing to try it with"},
};
// clang-format on

constexpr std::size_t verdictColumn = 52;
constexpr std::size_t textColumn = 10;   // behind the verdict
constexpr std::size_t shortestName = 3;  // that is looked for in words of others

const VerdictWord& wordOf(Verdict verdict)
{
    return *std::ranges::find(verdictWords, verdict, &VerdictWord::verdict);
}

std::string padded(std::string_view text, std::size_t width)
{
    std::string result(text);
    const auto columns = static_cast<std::size_t>(
        std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
    return result + std::string(columns < width ? width - columns : 1, ' ');
}

// On one line, whatever FEMAP put into it.
std::string onOneLine(std::string text)
{
    std::ranges::replace_if(
        text, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return text;
}

std::uint64_t randomSalt()
{
    std::random_device random;
    return (std::uint64_t{random()} << 32U) | random();
}

}  // namespace

Report::Report(sys::OutputFile& file, bool hidesNames)
    : file_(file), hidesNames_(hidesNames), salt_(randomSalt())
{}

void Report::write(const std::string& text)
{
    file_.write(text);
}

void Report::section(const std::string& title)
{
    heading_ = title.substr(0, title.find(' '));
    write("\r\n" + title + "\r\n" + std::string(title.size(), '-') + "\r\n");
}

void Report::say(const std::string& text)
{
    write(onOneLine(text) + "\r\n");
}

void Report::begin(const std::string& what)
{
    what_ = onOneLine(what);
    write(padded(what_, verdictColumn));
}

void Report::end(Verdict verdict, const std::string& text)
{
    const VerdictWord& word = wordOf(verdict);
    const std::string rest = onOneLine(text);
    write((rest.empty() ? std::string(word.word) : padded(word.word, textColumn) + rest) + "\r\n");
    ++counts_[verdict];
    if (word.isToLookAt)
        toLookAt_.push_back({heading_, what_, verdict, rest});
    what_.clear();
}

void Report::line(const std::string& what, Verdict verdict, const std::string& text)
{
    begin(what);
    end(verdict, text);
}

void Report::breakOff(const std::string& why)
{
    if (!what_.empty())
        write("\r\n");
    const std::string at = what_.empty() ? "" : ". It was asked for: " + what_ + ".";
    write("THE PROBE ENDS HERE: " + onOneLine(why) + at + "\r\n");
    end_ = onOneLine(why) + at;
    what_.clear();
}

void Report::answer(Question question, const std::string& text)
{
    std::vector<std::string>& parts = answers_[question];
    if (std::ranges::find(parts, text) == parts.end())
        parts.push_back(onOneLine(text));
}

std::string Report::markOf(const std::string& text) const
{
    // FNV-1a, begun with the salt: nobody finds the text by trying.
    std::uint64_t hash = 14695981039346656037U ^ salt_;
    for (const char c : text)
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
    std::array<char, 12> digits{};
    static_cast<void>(std::snprintf(digits.data(), digits.size(), "#%08x",
                                    static_cast<unsigned>(hash ^ (hash >> 32U))));
    return digits.data();
}

std::string Report::name(const std::string& text)
{
    if (text.size() >= shortestName)
        names_.insert(text);
    return hidesNames_ && !text.empty() ? markOf(text) : '"' + text + '"';
}

std::string Report::words(std::string text) const
{
    if (!hidesNames_)
        return text;
    for (auto each = names_.rbegin(); each != names_.rend(); ++each)
        for (std::size_t place = text.find(*each); place != std::string::npos;
             place = text.find(*each))
            text.replace(place, each->size(), markOf(*each));
    return text;
}

// The names that FEMAP lacks, in one line for each object; a name that was asked for twice, once.
void Report::tellAbsent()
{
    std::vector<std::pair<std::string, std::string>> byObject;  // in the order of the report
    std::set<std::string> told;
    for (const Finding& each : toLookAt_) {
        const std::string member = each.what.substr(0, each.what.find('('));
        if (each.verdict != Verdict::Absent || !told.insert(member).second)
            continue;
        const std::string object = each.heading + ' ' + member.substr(0, member.find('.'));
        auto found =
            std::ranges::find(byObject, object, &std::pair<std::string, std::string>::first);
        if (found == byObject.end())
            found = byObject.insert(found, {object, ""});
        found->second += (found->second.empty() ? "" : ", ") + member.substr(member.find('.') + 1);
    }
    for (const auto& [object, members] : byObject)
        say(object + " lacks: " + members);
}

void Report::summary()
{
    section("S What is to be looked at");
    if (toLookAt_.empty() && end_.empty())
        say("Nothing: FEMAP is what the tool believes, as far as this run could see.");
    if (!end_.empty())
        say("FEMAP was gone: " + end_);
    std::set<std::string> told;
    for (const Finding& each : toLookAt_)
        if (each.verdict != Verdict::Absent && told.insert(each.heading + each.what).second)
            say(padded(each.heading + ' ' + each.what, verdictColumn) +
                padded(wordOf(each.verdict).word, textColumn) + each.text);
    tellAbsent();

    section("Q Open questions");
    for (const QuestionText& each : questionTexts) {
        say(padded(std::to_string(static_cast<int>(each.question)) + ".", 4) +
            std::string(each.text));
        const auto found = answers_.find(each.question);
        if (found == answers_.end())
            say("    not answered: " + std::string(each.howToAnswer));
        else
            for (const std::string& part : found->second)
                say("    answer: " + part);
    }

    section("N Numbers of verdicts");
    for (const VerdictWord& each : verdictWords)
        say(padded(each.word, textColumn) + padded(std::to_string(counts_[each.verdict]), 6) +
            std::string(each.meaning));
}

}  // namespace probe

#include "Messages.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace house
{

namespace
{

constexpr std::array<std::string_view, 27> makers = {"note",
                                                     "tellAtLeastHere",
                                                     "RuntimeError",
                                                     "runtime_error",
                                                     "ConnectionLost",
                                                     "ScriptError",
                                                     "Unavailable",
                                                     "FormatError",
                                                     "fail",
                                                     "failField",
                                                     "failWithCure",
                                                     "demand",
                                                     "demandOk",
                                                     "rowNamed",
                                                     "tellEngineer",
                                                     "showMessage",
                                                     "Progress",
                                                     "tellProblems",
                                                     "tryToTellEngineer",
                                                     "tellResult",
                                                     "tellHint",
                                                     "tellProblem",
                                                     "tellFailure",
                                                     "showWaiting",
                                                     "remark",
                                                     "naming",
                                                     "refuse"};
// Variables and constants that hold a message or a part of one.
constexpr std::array<std::string_view, 15> holders = {
    "femapIsGone",   "noModelOpen",      "cure",          "startingWithFemap",
    "paneIsGone",    "modelMustBeSaved", "problem",       "message",
    "noRow",         "failure",          "failure_",      "askedFor",
    "femapIsHidden", "unsavedInForm",    "unsavedInStudy"};

struct Token
{
    enum class Kind
    {
        Word,
        Text,
        Mark
    } kind;
    std::string text;
    std::size_t line;
};

/// Takes C++ apart as far as texts and calls need it.
class Scanner
{
public:
    explicit Scanner(const std::string& text) : source_(text) {}

    std::vector<Token> tokens()
    {
        while (at_ < source_.size())
            step();
        return std::move(tokens_);
    }

private:
    void step()
    {
        const std::string_view rest = std::string_view(source_).substr(at_);
        if (rest.starts_with("//"))
            skip(std::min(rest.find('\n'), rest.size()));
        else if (rest.starts_with("R\"text("))
            takeRaw(rest);
        else if (rest.front() == '"')
            takeText();
        else if (rest.front() == '\'')
            skip(rest.find('\'', rest[1] == '\\' ? 3 : 2) + 1);
        else if (isWordCharacter(rest.front()))
            takeWord(rest);
        else
            takeMark(rest.front());
    }

    void skip(std::size_t count)
    {
        line_ += static_cast<std::size_t>(
            std::ranges::count(std::string_view(source_).substr(at_, count), '\n'));
        at_ += count;
    }
    void takeRaw(std::string_view rest)
    {
        const std::size_t end = rest.find(")text\"");
        addText(std::string(rest.substr(7, end - 7)));
        skip(end + 6);
    }
    void takeText()
    {
        std::string text;
        for (++at_; source_[at_] != '"'; ++at_) {
            const bool isEscaped = source_[at_] == '\\';
            at_ += isEscaped ? 1 : 0;
            text += isEscaped && source_[at_] == 'n' ? '\n' : source_[at_];
        }
        ++at_;
        addText(text);
    }
    void addText(const std::string& text)
    {
        if (!tokens_.empty() && tokens_.back().kind == Token::Kind::Text)
            tokens_.back().text += text;
        else
            tokens_.push_back({Token::Kind::Text, text, line_});
    }
    void takeWord(std::string_view rest)
    {
        // A mark of thousands is part of a number.
        const auto end = std::ranges::find_if_not(rest, [](char c) { return isWordCharacter(c); });
        const auto length = static_cast<std::size_t>(end - rest.begin());
        tokens_.push_back({Token::Kind::Word, std::string(rest.substr(0, length)), line_});
        at_ += length;
        if (std::isdigit(static_cast<unsigned char>(rest.front())) != 0 && at_ < source_.size() &&
            source_[at_] == '\'')
            ++at_;
    }
    void takeMark(char mark)
    {
        if (std::isspace(static_cast<unsigned char>(mark)) == 0)
            tokens_.push_back({Token::Kind::Mark, std::string(1, mark), line_});
        skip(1);
    }

    const std::string& source_;
    std::size_t at_ = 0;
    std::size_t line_ = 1;
    std::vector<Token> tokens_;
};

std::string_view trimmed(std::string_view text)
{
    const std::size_t first = std::min(text.find_first_not_of(" \t\r\n"), text.size());
    return text.substr(first, text.find_last_not_of(" \t\r\n") + 1 - first);
}

bool hasSeveralWords(std::string_view text)
{
    int words = 0;
    bool isInWord = false;
    for (const char c : text) {
        const bool isLetter = std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '\'';
        words += isLetter && !isInWord ? 1 : 0;
        isInWord = isLetter;
    }
    return words > 1;
}

// Where the call or the statement ends that begins there.
std::size_t endOf(const std::vector<Token>& tokens, std::size_t begin, bool isCall)
{
    int depth = 0;
    for (std::size_t i = begin; i < tokens.size(); ++i) {
        const std::string& mark = tokens[i].text;
        if (tokens[i].kind != Token::Kind::Mark)
            continue;
        depth += mark == "(" || mark == "{" ? 1 : mark == ")" || mark == "}" ? -1 : 0;
        if ((isCall && depth == 0) || (!isCall && (mark == ";" || depth < 0)))
            return i;
    }
    return tokens.size();
}

}  // namespace

std::vector<MessagePart> messagePartsIn(const File& file)
{
    const std::vector<Token> tokens = Scanner(file.text).tokens();
    std::vector<bool> isTaken(tokens.size(), false);
    std::vector<MessagePart> parts;
    for (std::size_t i = 0; i + 1 < tokens.size(); ++i) {
        if (tokens[i].kind != Token::Kind::Word)
            continue;
        const bool isCall = tokens[i + 1].text == "(" && holds(makers, tokens[i].text);
        const bool isHolder = tokens[i + 1].text == "=" && holds(holders, tokens[i].text);
        if (!isCall && !isHolder)
            continue;
        for (std::size_t k = i + 1; k < endOf(tokens, i + 1, isCall); ++k) {
            const std::string text(trimmed(tokens[k].text));
            if (tokens[k].kind == Token::Kind::Text && !isTaken[k] && hasSeveralWords(text)) {
                isTaken[k] = true;
                parts.push_back({text, file.path + ":" + std::to_string(tokens[k].line)});
            }
        }
    }
    return parts;
}

std::vector<std::string> literalsIn(const std::string& text)
{
    std::vector<std::string> literals;
    for (const Token& token : Scanner(text).tokens())
        if (token.kind == Token::Kind::Text)
            literals.push_back(token.text);
    return literals;
}

std::vector<std::string> partsOf(std::string_view message)
{
    constexpr std::string_view gap = "…";
    constexpr std::string_view joints = " .,;:\"()";  // may be put in where parts are joined
    std::vector<std::string> parts;
    while (!message.empty()) {
        const std::size_t end = std::min(message.find(gap), message.size());
        std::string_view part = message.substr(0, end);
        part.remove_prefix(std::min(part.find_first_not_of(joints), part.size()));
        part = part.substr(0, part.find_last_not_of(joints) + 1);
        if (hasSeveralWords(part))
            parts.emplace_back(part);
        message.remove_prefix(std::min(end + gap.size(), message.size()));
    }
    return parts;
}

std::vector<std::string> messagesOf(const std::string& page)
{
    return matchingLines(page, R"(\| `(.*?)` \|.*)");
}

}  // namespace house

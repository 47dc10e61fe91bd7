#include "probe/Session.h"

#include <array>
#include <cstdio>

namespace probe
{

namespace
{

std::string timeOf(const Answer& answer)
{
    std::array<char, 32> text{};
    static_cast<void>(std::snprintf(text.data(), text.size(), " [%.1f ms]", answer.milliseconds));
    return text.data();
}

std::string believedText(const Belief& belief)
{
    std::string text = typeText(belief.returned);
    for (const VARTYPE each : belief.filled)
        text += ", &" + typeText(each);
    return text;
}

// FEMAP may leave a variable for an array empty when there is nothing to return.
bool isOfType(const Value& value, VARTYPE believed)
{
    return value.type() == believed || ((believed & VT_ARRAY) != 0 && value.type() == VT_EMPTY);
}

bool isAsBelieved(const Answer& answer, const Belief& belief)
{
    if (answer.value.type() != belief.returned || answer.filled.size() != belief.filled.size())
        return false;
    for (std::size_t i = 0; i < belief.filled.size(); ++i)
        if (!isOfType(answer.filled[i], belief.filled[i]))
            return false;
    return true;
}

}  // namespace

std::string callText(const Object& object, const std::string& member,
                     const std::vector<Argument>& arguments)
{
    std::string text = object.name() + '.' + member;
    if (arguments.empty())
        return text;
    text += '(';
    for (std::size_t i = 0; i < arguments.size();) {
        const std::string shown = arguments[i].shown();
        std::size_t alike = 1;
        while (arguments[i].isOut() && i + alike < arguments.size() &&
               arguments[i + alike].isOut() && arguments[i + alike].shown() == shown)
            ++alike;
        text += (i == 0 ? "" : ", ") + (alike > 1 ? std::to_string(alike) + ' ' : "") + shown;
        i += alike;
    }
    return text + ')';
}

Verdict verdictOfFailure(const Answer& answer)
{
    return answer.result == DISP_E_UNKNOWNNAME ? Verdict::Absent : Verdict::Refused;
}

Answer Session::ask(const Object& object, const std::string& member,
                    std::vector<Argument> arguments, const std::string& name)
{
    report.begin(callText(object, member, arguments) + (name.empty() ? "" : ", " + name));
    return object.call(member, std::move(arguments));
}

void Session::tell(Verdict verdict, const std::string& text, const Answer& answer)
{
    std::string rest = text + timeOf(answer);
    if (answer.rejected > 0)
        rest += "; FEMAP was busy and rejected it " + std::to_string(answer.rejected) + " times";
    for (const std::string& window : answer.windows)
        rest += "; FEMAP showed " + report.words(window);
    report.end(verdict, rest);
}

Answer Session::read(const Object& object, const std::string& member, const Belief& belief,
                     std::vector<Argument> arguments, const std::string& name)
{
    Answer answer = ask(object, member, std::move(arguments), name);
    if (!answer.isDone())
        tell(verdictOfFailure(answer), reason(answer), answer);
    else if (belief.isStatus && !answer.isOk())
        tell(Verdict::Found, shown(answer), answer);
    else if (isAsBelieved(answer, belief))
        tell(Verdict::Same, shown(answer), answer);
    else
        tell(Verdict::Differs, shown(answer) + "; believed: " + believedText(belief), answer);
    return answer;
}

Object Session::object(const Object& application, const std::string& member)
{
    Answer answer = ask(application, member);
    Object object(connection, answer.value.takeObject(), member);
    if (!answer.isDone())
        tell(verdictOfFailure(answer), reason(answer), answer);
    else
        tell(object.isThere() ? Verdict::Same : Verdict::Differs,
             object.isThere() ? "DISP" : typeText(answer.value.type()) + "; believed: DISP",
             answer);
    return object;
}

std::string Session::shown(const Value& value)
{
    return probe::shown(value, [this](const std::string& text) { return report.name(text); });
}

std::string Session::shown(const Answer& answer)
{
    std::string text = shown(answer.value);
    for (const Value& each : answer.filled)
        text += "; &" + shown(each);
    return text;
}

}  // namespace probe

#include "fake/CallWatch.h"

#include "femap/Objects.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <ostream>
#include <utility>

namespace fake
{

namespace
{

[[noreturn]] void refuse(const std::string& why)
{
    throw sys::RuntimeError(sys::ErrorNumber::ObjectFailed, why);
}

[[noreturn]] void loseFemap()
{
    throw femap::ConnectionLost("The RPC server is unavailable");
}

}  // namespace

std::string Call::text() const
{
    return (object.empty() ? name : object + '.' + name) + arguments;
}

bool operator==(const Call& call, std::string_view text)
{
    return call.name == text || call.text() == text;
}

void PrintTo(const Call& call, std::ostream* out)
{
    *out << call.text();
}

void CallWatch::behave()
{
    beforeCall = [](const std::string&) {};
}

void CallWatch::before(const std::string& call, std::function<void()> action)
{
    beforeCall = [this, call, action = std::move(action)](const std::string&) {
        if (calls.back() == call)
            action();
    };
}

void CallWatch::failAt(const std::string& call)
{
    failAt(call, call + " failed");
}

void CallWatch::failAt(const std::string& call, const std::string& why)
{
    before(call, [why] { refuse(why); });
}

void CallWatch::failAtFirst(const std::string& call, int times)
{
    before(call, [call, times]() mutable {
        if (times-- > 0)
            refuse(call + " failed");
    });
}

void CallWatch::dieAt(const std::string& call)
{
    beforeCall = [this, call, isDead = false](const std::string&) mutable {
        isDead = isDead || calls.back() == call;
        if (isDead)
            loseFemap();
    };
}

void CallWatch::failAtCall(std::size_t number)
{
    calls.clear();
    beforeCall = [this, number](const std::string&) {
        if (calls.size() == number)
            refuse("it was refused");
    };
}

void CallWatch::dieAtCall(std::size_t number)
{
    calls.clear();
    beforeCall = [this, number](const std::string&) {
        if (calls.size() >= number)
            loseFemap();
    };
}

std::ptrdiff_t CallWatch::count(std::string_view call) const
{
    return std::count(calls.begin(), calls.end(), call);
}

std::vector<std::string> CallWatch::callsToFemap() const
{
    std::vector<std::string> names;
    for (const Call& call : calls)
        if (call.object.empty())
            names.push_back(call.name);
    return names;
}

void CallWatch::tell(const Call& call)
{
    calls.push_back(call);
    beforeCall(call.name);
}

const std::any* CallWatch::answerTo(const Call& call) const
{
    const auto place = std::find_if(answers.begin(), answers.end(),
                                    [&](const auto& answer) { return call == answer.first; });
    return place == answers.end() ? nullptr : &place->second;
}

}  // namespace fake

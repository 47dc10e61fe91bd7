// Keeps the calls that are made to FEMAP, lets some fail and answers others in FEMAP's place.
#pragma once

#include <any>
#include <cstddef>
#include <functional>
#include <iosfwd>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace fake
{

/// A call to FEMAP or to an object that FEMAP handed out.
struct Call
{
    std::string object;     // "Node", "Set", "Output" …; empty: FEMAP itself
    std::string name;       // "Get"
    std::string arguments;  // each behind a blank, and behind them the ID that Get loaded

    /// "feAppStatusShow 1 100", "Node.Get 12", then "Node.Type 12".
    std::string text() const;
};

/// Whether a text means the call: its name or its whole text.
bool operator==(const Call& call, std::string_view text);
void PrintTo(const Call& call, std::ostream* out);

/// What all objects of one FEMAP share. A text means all calls of that name, as "Get" does, or the
/// one that it tells in full, as "Node.Get 12" does.
class CallWatch
{
public:
    CallWatch() = default;
    CallWatch(const CallWatch&) = delete;
    CallWatch& operator=(const CallWatch&) = delete;

    std::vector<Call> calls;
    int objects = 0;  // that are held now, FEMAP itself among them
    /// Told the name of each call before it is made; raises to let it fail. What follows sets it.
    std::function<void(const std::string& name)> beforeCall = [](const std::string&) {};
    /// Calls that are not made, and what is answered instead.
    std::map<std::string, std::any> answers;

    /// From now on no call fails.
    void behave();
    /// Does something before each such call.
    void before(const std::string& call, std::function<void()> action);
    /// From now on this call fails …
    void failAt(const std::string& call);
    void failAt(const std::string& call, const std::string& why);
    /// … or only the next time, or the next few times.
    void failAtFirst(const std::string& call, int times = 1);
    /// From this call on FEMAP is gone.
    void dieAt(const std::string& call);
    /// The same for calls counted from here on, the first one 1: only this one fails …
    void failAtCall(std::size_t number);
    /// … or FEMAP is gone from this one on.
    void dieAtCall(std::size_t number);

    std::ptrdiff_t count(std::string_view call) const;
    /// The names of the calls to FEMAP itself.
    std::vector<std::string> callsToFemap() const;

    /// A call is about to be made.
    void tell(const Call& call);
    /// What was prepared for it; none: it is to be made.
    const std::any* answerTo(const Call& call) const;
};

}  // namespace fake

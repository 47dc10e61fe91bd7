// What all parts of a probe share: the report, FEMAP, and how a call becomes a line of the report.
#pragma once

#include "probe/Object.h"
#include "probe/Report.h"
#include "system/System.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace probe
{

/// What the tool believes of an answer: the type that is returned, and those of the variables that
/// are filled. Status: what is returned tells whether it went well.
struct Belief
{
    VARTYPE returned = VT_I4;
    std::vector<VARTYPE> filled = {};
    bool isStatus = false;
};

/// A method that returns a status and fills variables.
inline Belief statusAnd(std::vector<VARTYPE> filled = {})
{
    return {VT_I4, std::move(filled), true};
}

constexpr VARTYPE arrayOf(VARTYPE type)
{
    return static_cast<VARTYPE>(VT_ARRAY | type);
}

/// The probe of one FEMAP. Everything that it refers to must outlive it.
class Session
{
public:
    Session(sys::System& machine, Report& to)
        : system(machine), report(to), connection(machine.monotonicSeconds)
    {}

    sys::System& system;
    Report& report;
    Connection connection;
    std::set<DWORD> processes;  // of FEMAP

    /// Begins a line of the report with a call and makes the call. name: what an engineer calls it.
    Answer ask(const Object& object, const std::string& member,
               std::vector<Argument> arguments = {}, const std::string& name = {});
    /// Ends the line: what it holds, then how long the call took and what FEMAP showed meanwhile.
    void tell(Verdict verdict, const std::string& text, const Answer& answer);
    /// Both: the verdict is whether the types are those believed. Returns the answer.
    Answer read(const Object& object, const std::string& member, const Belief& belief,
                std::vector<Argument> arguments = {}, const std::string& name = {});

    /// An object of the application's; its line says only whether there is one.
    Object object(const Object& application, const std::string& member);

    /// What an answer holds, as the report shows it.
    std::string shown(const Value& value);
    std::string shown(const Answer& answer);
    /// Why a call failed.
    std::string reason(const Answer& answer) { return report.words(reasonOf(answer)); }
};

/// "feProp.pval(0)".
std::string callText(const Object& object, const std::string& member,
                     const std::vector<Argument>& arguments);

/// Absent where FEMAP does not know the name, else Refused.
Verdict verdictOfFailure(const Answer& answer);

}  // namespace probe

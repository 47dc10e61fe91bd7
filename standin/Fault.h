// Faults that a test gives to members of the stand-in's objects, such as "feNode.GetAllArray".
#pragma once

#include <windows.h>

#include <map>
#include <oleauto.h>
#include <optional>
#include <string>
#include <string_view>

namespace standin
{

/// What is wrong with a member.
enum class Fault
{
    Missing,  // FEMAP does not know its name
    Fails,    // it returns FE_FAIL
    Raises,
    Short,    // the arrays that it returns lack their last element, a file that it writes its half
    Wrong,    // numbers and texts in the arrays that it returns are changed
    Refused,  // a property that can be read but not written: writing it raises
    Ignored,  // FEMAP says that all went well, and nothing is done
    Stalls,   // it takes the time that a test gave to calls that stall
    Dies,     // it is the last one that FEMAP carries out; nobody gets an answer
};

/// The members that have a fault at the moment.
class Faults
{
public:
    /// how: the name of a fault, or "none". False for any other text.
    bool set(const std::string& member, std::string_view how);
    std::optional<Fault> of(std::string_view kind, std::string_view member) const;

private:
    std::map<std::string, Fault> faults_;
};

/// Does to a returned array what the fault says; leaves everything else alone.
void spoil(VARIANT& returned, Fault fault);

}  // namespace standin

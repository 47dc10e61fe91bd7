#include "standin/Fault.h"

#include "femap/com/Variant.h"

#include <algorithm>
#include <iterator>
#include <type_traits>
#include <utility>
#include <vector>

namespace standin
{

using femap::com::Variant;

namespace
{

struct FaultName
{
    std::string_view how;
    Fault fault;
};

// clang-format off
constexpr FaultName faultNames[] = {
    {"missing", Fault::Missing},
    {"fails",   Fault::Fails},
    {"raises",  Fault::Raises},
    {"short",   Fault::Short},
    {"wrong",   Fault::Wrong},
    {"refused", Fault::Refused},
    {"ignored", Fault::Ignored},
    {"stalls",  Fault::Stalls},
    {"dies",    Fault::Dies},
};
// clang-format on

template <class Element>
Variant spoilt(std::vector<Element> elements, Fault fault)
{
    if (fault == Fault::Short && !elements.empty())
        elements.pop_back();
    if (fault == Fault::Wrong)
        for (Element& element : elements) {
            if constexpr (std::is_same_v<Element, std::string>)
                element += '?';
            else
                element += 1;
        }
    return elements;
}

}  // namespace

bool Faults::set(const std::string& member, std::string_view how)
{
    faults_.erase(member);
    if (how == "none")
        return true;
    const auto found = std::find_if(std::begin(faultNames), std::end(faultNames),
                                    [&](const FaultName& name) { return name.how == how; });
    if (found == std::end(faultNames))
        return false;
    faults_[member] = found->fault;
    return true;
}

std::optional<Fault> Faults::of(std::string_view kind, std::string_view member) const
{
    if (faults_.empty())
        return std::nullopt;
    const auto found = faults_.find(std::string(kind) + '.' + std::string(member));
    return found == faults_.end() ? std::nullopt : std::optional(found->second);
}

void spoil(VARIANT& returned, Fault fault)
{
    if ((returned.vt & VT_ARRAY) == 0)
        return;
    Variant whole;
    std::swap(*whole.raw(), returned);
    Variant result;
    if (whole.raw()->vt == (VT_ARRAY | VT_R8))
        result = spoilt(whole.reals(), fault);
    else if (whole.raw()->vt == (VT_ARRAY | VT_I4))
        result = spoilt(whole.numbers(), fault);
    else
        result = spoilt(whole.texts(), fault);
    std::swap(returned, *result.raw());
}

}  // namespace standin

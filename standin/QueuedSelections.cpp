#include "standin/QueuedSelections.h"

#include "femap/IDRanges.h"
#include "system/RuntimeError.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <string_view>

namespace standin
{

using femap::ReturnCode;

namespace
{

// Adds those of the range that exist.
void addRange(const std::string& text, const std::vector<int>& available, std::vector<int>& ids)
{
    const std::optional<femap::IDRange> range = femap::parseIDRange(text);
    if (!range)
        throw sys::RuntimeError(sys::ErrorNumber::InvalidCall,
                                '"' + text + "\" is no range of IDs");
    std::ranges::copy_if(available, std::back_inserter(ids),
                         [&](int id) { return range->contains(id); });
}

}  // namespace

Selection parseSelection(const std::string& text, const std::vector<int>& available)
{
    static const std::map<std::string, ReturnCode, std::less<>> codes = {
        {"cancel", ReturnCode::Cancel},
        {"missing", ReturnCode::NotExist},
        {"fail", ReturnCode::Fail},
    };
    if (const auto code = codes.find(text); code != codes.end())
        return {code->second, {}};
    if (text == "all")
        return {ReturnCode::Ok, available};
    Selection result;
    std::istringstream ranges(text);
    for (std::string range; ranges >> range;)
        addRange(range, available, result.ids);
    std::sort(result.ids.begin(), result.ids.end());
    return result;
}

Selection QueuedSelections::answer(EntityType type, const std::string& title, bool onlyOne,
                                   const std::vector<int>& available)
{
    if (!texts_.empty()) {
        const std::string text = texts_.front();
        texts_.pop_front();
        return parseSelection(text, available);
    }
    if (available.empty())
        return {ReturnCode::NotExist, {}};
    return ask ? ask(type, title, onlyOne, available) : Selection{ReturnCode::Cancel, {}};
}

}  // namespace standin

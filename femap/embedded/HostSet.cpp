// Sets of IDs in the model host: adding, selecting and walking.
#include "femap/embedded/Host.h"
#include "femap/embedded/HostObjects.h"

#include <algorithm>
#include <iterator>

namespace femap::embedded
{

HostSet::HostSet(Host& host) : host_(host), id_(++host.lastSetID)
{
    host_.sets[id_] = this;
}

HostSet::~HostSet()
{
    host_.sets.erase(id_);
}

void HostSet::Reset()
{
    current_ = 0;
    next_ = 0;
    ended_ = false;
}

int HostSet::Next()
{
    ended_ = ended_ || next_ >= ids_.size();
    if (ended_)
        return 0;
    current_ = ids_[next_++];
    return current_;
}

ReturnCode HostSet::AddAll(EntityType type)
{
    add(host_.idsOf(type));
    return ReturnCode::Ok;
}

ReturnCode HostSet::Copy(int setID)
{
    const auto other = host_.sets.find(setID);
    if (other == host_.sets.end())
        return ReturnCode::Fail;
    ids_ = other->second->ids();
    Reset();
    return ReturnCode::Ok;
}

ReturnCode HostSet::Select(EntityType type, bool clear, const std::string& title)
{
    if (clear)
        this->clear();
    return ask(type, title, host_.idsOf(type));
}

ReturnCode HostSet::SelectMultiID(EntityType type, int ownerSet, const std::string& title)
{
    return ask(type, title, host_.idsOf(type, ownerSet));
}

ReturnCode HostSet::ask(EntityType type, const std::string& title,
                        const std::vector<int>& available)
{
    Selection selection = host_.dialogs().answer(type, title, false, available);
    if (selection.code != ReturnCode::Ok)
        return selection.code;
    if (available.empty())
        return ReturnCode::NotExist;
    std::sort(selection.ids.begin(), selection.ids.end());
    std::vector<int> present;
    std::set_intersection(selection.ids.begin(), selection.ids.end(), available.begin(),
                          available.end(), std::back_inserter(present));
    add(present);
    return ReturnCode::Ok;
}

void HostSet::clear()
{
    ids_.clear();
    Reset();
}

void HostSet::add(const std::vector<int>& ids)
{
    std::vector<int> all;
    all.reserve(ids_.size() + ids.size());
    std::merge(ids_.begin(), ids_.end(), ids.begin(), ids.end(), std::back_inserter(all));
    all.erase(std::unique(all.begin(), all.end()), all.end());
    ids_ = std::move(all);
    if (current_ != 0)
        next_ = static_cast<std::size_t>(std::upper_bound(ids_.begin(), ids_.end(), current_) -
                                         ids_.begin());
}

}  // namespace femap::embedded

// The function object ("feFunction") of the model host.
#include "femap/Value.h"
#include "femap/embedded/Host.h"
#include "femap/embedded/HostObjects.h"

#include <utility>

namespace femap::embedded
{

ReturnCode HostFunction::SelectID(const std::string& title)
{
    const std::vector<int> available = host_.idsOf(EntityType::Function);
    const Selection selection =
        host_.dialogs().answer(EntityType::Function, title, true, available);
    if (selection.code != ReturnCode::Ok)
        return selection.code;
    if (available.empty())
        return ReturnCode::NotExist;
    return selection.ids.empty() ? ReturnCode::Fail : Get(selection.ids.front());
}

ReturnCode HostFunction::Get(int id)
{
    const neutral::Function* const found =
        host_.openModel().functions.find(id == 0 ? data_.id : id);
    if (found == nullptr)
        return ReturnCode::Fail;
    data_ = *found;
    return ReturnCode::Ok;
}

std::string HostFunction::title()
{
    return withoutControlCharacters(data_.title);
}

ReturnCode HostFunction::PutFunctionList(FunctionPoints points)
{
    if (points.x.size() != points.y.size())
        return ReturnCode::Fail;
    data_.x = std::move(points.x);
    data_.y = std::move(points.y);
    return ReturnCode::Ok;
}

ReturnCode HostFunction::Put(int id)
{
    neutral::Function stored = data_;
    if (id != 0)
        stored.id = id;
    if (stored.id <= 0)
        return ReturnCode::Fail;
    host_.openModel().functions.put(std::move(stored));
    host_.isModified = true;
    return ReturnCode::Ok;
}

}  // namespace femap::embedded

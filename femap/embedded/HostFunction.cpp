// The function object ("feFunction") of the model host.
#include "femap/Value.h"
#include "femap/embedded/Host.h"
#include "femap/embedded/HostObjects.h"

namespace femap::embedded
{

namespace
{

class HostFunction : public femap::Function
{
public:
    explicit HostFunction(Host& host) : host_(host) {}

    ReturnCode SelectID(const std::string& title) override
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
    ReturnCode Get(int id) override
    {
        const neutral::Function* const found =
            host_.openModel().functions.find(id == 0 ? data_.id : id);
        if (found == nullptr)
            return ReturnCode::Fail;
        data_ = *found;
        return ReturnCode::Ok;
    }
    int ID() override { return data_.id; }
    std::string title() override { return withoutControlCharacters(data_.title); }
    FunctionPoints GetFunctionList() override { return {data_.x, data_.y}; }

private:
    Host& host_;
    neutral::Function data_;
};

}  // namespace

std::unique_ptr<femap::Function> makeFunction(Host& host)
{
    return std::make_unique<HostFunction>(host);
}

}  // namespace femap::embedded

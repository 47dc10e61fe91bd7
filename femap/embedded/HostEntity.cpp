#include "femap/embedded/Host.h"
#include "femap/embedded/HostObjects.h"
#include "femap/embedded/Members.h"

namespace femap::embedded
{

namespace
{

/// Holds a copy of the entity that was loaded last, as FEMAP's objects do. A copy into a place that
/// held one already takes no memory anew, so a walk over a large model is cheap.
template <class Data>
class HostEntity : public Entity
{
public:
    explicit HostEntity(Host& host) : host_(host) {}

    ReturnCode Get(int id) override
    {
        const auto& table = host_.openModel().*Kind<Data>::table;
        const Data* const found = table.find(id == 0 ? data_.id : id);
        if (found == nullptr)
            return ReturnCode::Fail;
        data_ = *found;
        return ReturnCode::Ok;
    }
    int Type() override { return data_.type; }
    Value member(const std::string& name) override
    {
        return readMember(data_, name, std::nullopt, host_.indexBeyondArrayRaises);
    }
    Value member(const std::string& name, int index) override
    {
        return readMember(data_, name, index, host_.indexBeyondArrayRaises);
    }

private:
    Host& host_;
    Data data_;
};

}  // namespace

std::unique_ptr<Entity> makeEntity(Host& host, const std::string& word)
{
    return withKind(word, [&]<class Data>(Kind<Data>) -> std::unique_ptr<Entity> {
        return std::make_unique<HostEntity<Data>>(host);
    });
}

}  // namespace femap::embedded

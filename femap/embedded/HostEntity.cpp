// The entity objects of the model host. Each holds a copy of the entity that was loaded last, as
// FEMAP's do. Copying over an older copy reuses its memory, so a walk over a large model is cheap.
#include "femap/embedded/HostMembers.h"
#include "femap/embedded/HostObjects.h"

namespace femap::embedded
{

namespace
{

template <class Data>
class HostEntity : public DataObject<Entity, Data>
{
public:
    using DataObject<Entity, Data>::DataObject;

    ReturnCode Get(int id) override
    {
        const auto& table = this->host_.openModel().*Kind<Data>::table;
        const Data* const found = table.find(id == 0 ? this->data_.id : id);
        if (found == nullptr)
            return ReturnCode::Fail;
        this->data_ = *found;
        return ReturnCode::Ok;
    }
    int Type() override { return this->data_.type; }
};

}  // namespace

std::unique_ptr<Entity> makeEntity(Host& host, const std::string& word)
{
    return withKind(word, [&]<class Data>(Kind<Data>) -> std::unique_ptr<Entity> {
        return std::make_unique<HostEntity<Data>>(host);
    });
}

}  // namespace femap::embedded

// An entity object of the model host. It holds a copy of the entity that was loaded last, as
// FEMAP's do. Copying over an older copy reuses its memory, so a walk over a large model is cheap.
#pragma once

#include "femap/embedded/HostMembers.h"

namespace femap::embedded
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

    /// The copy.
    Data& data() { return this->data_; }
};

}  // namespace femap::embedded

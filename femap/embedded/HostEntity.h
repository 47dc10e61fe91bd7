// An entity object of the model host. It holds a copy of the entity that was loaded last, as
// FEMAP's do. Copying over an older copy reuses its memory, so a walk over a large model is cheap.
#pragma once

#include "femap/embedded/HostMembers.h"

#include <utility>

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

    /// Changes the copy; nothing reaches the model.
    void put(const std::string& name, std::optional<int> index, const Value& value)
    {
        this->write(name, index, value);
    }
    /// Stores the copy in the model, under its own ID for 0.
    ReturnCode Put(int id)
    {
        Data stored = this->data_;
        if (id != 0)
            stored.id = id;
        if (stored.id <= 0)
            return ReturnCode::Fail;
        (this->host_.openModel().*Kind<Data>::table).put(std::move(stored));
        this->host_.isModified = true;
        return ReturnCode::Ok;
    }

    /// The copy.
    const Data& data() const { return this->data_; }
};

}  // namespace femap::embedded

// An object of the model host with data of its own, whose members are read by name.
#pragma once

#include "femap/Objects.h"
#include "femap/embedded/Host.h"
#include "femap/embedded/Members.h"

#include <optional>
#include <string>
#include <utility>

namespace femap::embedded
{

template <class Interface, class Data>
class DataObject : public Interface
{
public:
    explicit DataObject(Host& host, Data data = {}) : host_(host), data_(std::move(data)) {}

    Value member(const std::string& name) override
    {
        return readMember(data_, name, std::nullopt, host_.indexBeyondArrayRaises);
    }
    Value member(const std::string& name, int index) override
    {
        return readMember(data_, name, index, host_.indexBeyondArrayRaises);
    }

protected:
    /// Changes the object's own data; nothing reaches the model.
    void write(const std::string& name, std::optional<int> index, const Value& value)
    {
        writeMember(data_, name, index, value, host_.indexBeyondArrayRaises);
    }

    Host& host_;
    Data data_;
};

}  // namespace femap::embedded

#pragma once

#include "femap/Objects.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace fake
{

// Objects of FEMAP that hand every call on to another one; tests derive from them to watch calls or
// to let some fail.

class ForwardingEntity : public femap::Entity
{
public:
    explicit ForwardingEntity(std::unique_ptr<femap::Entity> real) : real_(std::move(real)) {}

    femap::ReturnCode Get(int id) override { return real_->Get(id); }
    int Type() override { return real_->Type(); }
    femap::Value member(const std::string& name) override { return real_->member(name); }
    femap::Value member(const std::string& name, int index) override
    {
        return real_->member(name, index);
    }
    void prefetch(const std::vector<int>& ids,
                  const std::vector<femap::MemberName>& members) override
    {
        real_->prefetch(ids, members);
    }

private:
    std::unique_ptr<femap::Entity> real_;
};

class ForwardingVector : public femap::OutputVector
{
public:
    explicit ForwardingVector(std::unique_ptr<femap::OutputVector> real) : real_(std::move(real)) {}

    femap::ReturnCode Get(int vectorID) override { return real_->Get(vectorID); }
    int ID() override { return real_->ID(); }
    std::string Title() override { return real_->Title(); }
    int classicID() override { return real_->classicID(); }
    double Value(int entityID) override { return real_->Value(entityID); }
    double maxval() override { return real_->maxval(); }
    double minval() override { return real_->minval(); }
    femap::Value member(const std::string& name) override { return real_->member(name); }
    femap::Value member(const std::string& name, int index) override
    {
        return real_->member(name, index);
    }
    void prefetch(std::vector<femap::VectorReading> plan) override
    {
        real_->prefetch(std::move(plan));
    }

private:
    std::unique_ptr<femap::OutputVector> real_;
};

}  // namespace fake

#pragma once

#include "fake/FormFixture.h"
#include "femap/com/bulk/Calls.h"
#include "femap/com/bulk/PrefetchingEntity.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace femap::com::bulk
{

/// The host's entity, with a note of each call.
class NotedEntity : public Entity
{
public:
    NotedEntity(std::unique_ptr<Entity> real, Calls& calls) : real_(std::move(real)), calls_(calls)
    {}

    std::function<void(const std::string&)> beforeCall = [](const std::string&) {};

    femap::Value member(const std::string& name) override
    {
        note(name);
        return real_->member(name);
    }
    femap::Value member(const std::string& name, int index) override
    {
        note(name + ' ' + std::to_string(index));
        return real_->member(name, index);
    }
    ReturnCode Get(int id) override
    {
        note("Get " + std::to_string(id));
        return real_->Get(id);
    }
    int Type() override
    {
        note("Type");
        return real_->Type();
    }

private:
    void note(const std::string& call)
    {
        beforeCall(call);
        calls_.push_back(call);
    }

    std::unique_ptr<Entity> real_;
    Calls& calls_;
};

/// How fetching goes wrong.
enum class EntityFlaw
{
    None,
    NoList,
    NoFetch,
    FewerValues,
    OtherValues,
    NoColumns,
    FemapIsGone,
};

/// Fetches x and y, the type, and the reference frames of nodes from the model.
class ModelEntityFetcher : public EntityFetcher
{
public:
    ModelEntityFetcher(neutral::Model& model, Calls& calls, std::size_t portion, EntityFlaw flaw)
        : model_(model), calls_(calls), portion_(portion), flaw_(flaw)
    {}

    std::vector<bool> choose(const std::vector<MemberName>& members) override
    {
        chosen_.clear();
        std::vector<bool> result;
        for (const MemberName& member : members) {
            const Calls known = {"x", "y", "type", "defCSys"};
            result.push_back(!member.index &&
                             std::find(known.begin(), known.end(), member.name) != known.end());
            if (result.back())
                chosen_.push_back(member.name);
        }
        return result;
    }
    Cost cost() const override { return {1, 1}; }
    std::size_t portion() const override { return portion_; }
    std::vector<int> existing() override
    {
        calls_.push_back("list");
        if (flaw_ == EntityFlaw::NoList)
            refuse("list");
        return model_.nodes.ids();
    }
    std::vector<Column> fetch(std::span<const int> ids) override
    {
        calls_.push_back("fetch " + std::to_string(ids.size()));
        if (flaw_ == EntityFlaw::NoFetch)
            refuse("fetch");
        if (flaw_ == EntityFlaw::FemapIsGone)
            throw ConnectionLost("FEMAP is gone");
        std::vector<Column> columns;
        for (const std::string& name : chosen_)
            columns.push_back(columnOf(name, ids));
        return columns;
    }

private:
    Column columnOf(const std::string& name, std::span<const int> ids) const
    {
        if (flaw_ == EntityFlaw::NoColumns)
            return {};
        std::vector<double> reals;
        std::vector<std::int32_t> numbers;
        for (const int id : ids) {
            const neutral::Node& node = *model_.nodes.find(id);
            reals.push_back(name == "x" ? node.x : node.y);
            numbers.push_back(name == "type" ? node.type : node.defCSys);
        }
        if (flaw_ == EntityFlaw::FewerValues)
            reals.pop_back();
        if (flaw_ == EntityFlaw::OtherValues)
            reals.front() += 1e-9;
        if (name == "x" || name == "y")
            return reals;
        return numbers;
    }

    neutral::Model& model_;
    Calls& calls_;
    std::size_t portion_;
    EntityFlaw flaw_;
    Calls chosen_;
};

struct PrefetchedNodes
{
    explicit PrefetchedNodes(int count = 40)
    {
        for (int i = 1; i <= count; ++i)
            f.model().nodes.put(
                {.id = 2 * i, .defCSys = i % 3, .type = i % 2, .x = i / 8.0, .y = -i / 3.0});
    }

    PrefetchingEntity make(std::size_t portion, EntityFlaw flaw = EntityFlaw::None)
    {
        auto plain = std::make_unique<NotedEntity>(f.context.femap().entity("Node"), calls);
        noted = plain.get();
        return {std::move(plain),
                std::make_unique<ModelEntityFetcher>(f.model(), calls, portion, flaw), capability};
    }
    std::vector<int> ids() { return f.model().nodes.ids(); }
    std::ptrdiff_t countOf(const std::string& call) const
    {
        return std::count(calls.begin(), calls.end(), call);
    }

    fake::FormFixture f;
    Calls calls;
    NotedEntity* noted = nullptr;
    std::shared_ptr<Capability> capability = std::make_shared<Capability>();
};

}  // namespace femap::com::bulk

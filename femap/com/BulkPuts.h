// Puts coordinates of nodes, and numbers of properties and materials, by the calls of FEMAP that
// take arrays.
#pragma once

#include "femap/com/BulkArrays.h"
#include "femap/com/BulkMesh.h"
#include "femap/com/ComObjects.h"
#include "femap/com/bulk/EntityPutter.h"

#include <memory>
#include <string>
#include <vector>

namespace femap::com
{

/// The putter for "Node", "Prop" or "Matl", through an object of that kind; null for any other
/// word.
std::unique_ptr<bulk::EntityPutter> makePutter(const std::string& word, const ComContext& context,
                                               Dispatch& object);

/// FEMAP takes all three coordinates of a node at once; the others are those that it has.
class CoordinatePutter : public bulk::EntityPutter
{
public:
    CoordinatePutter(const ComContext& context, Dispatch& object)
        : object_(object), fetcher_(context, bulkNodes, object)
    {}

    bool takes(const MemberName& member) override;
    std::size_t cost(const std::vector<bulk::Number>& numbers) const override;
    std::vector<int> existing() override { return fetcher_.existing(); }
    void put(const std::vector<bulk::Number>& numbers) override;
    Value present(const bulk::Number& number) override;

private:
    Dispatch& object_;
    MeshFetcher fetcher_;
};

/// FEMAP since 2021.2 takes any mix of entities and places of their arrays.
class ArrayPutter : public bulk::EntityPutter
{
public:
    ArrayPutter(ComContext context, const ArrayKind& kind, Dispatch& object)
        : context_(std::move(context)), kind_(kind), object_(object)
    {}

    bool takes(const MemberName& member) override;
    std::size_t cost(const std::vector<bulk::Number>& numbers) const override;
    std::vector<int> existing() override;
    void put(const std::vector<bulk::Number>& numbers) override;
    Value present(const bulk::Number& number) override;

private:
    std::vector<std::string> namesToFind(const std::vector<bulk::Number>& numbers) const;

    ComContext context_;
    const ArrayKind& kind_;
    Dispatch& object_;
};

}  // namespace femap::com

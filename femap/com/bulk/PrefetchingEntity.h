// An entity that fetches in few calls what prefetch announced. Whatever cannot be fetched is read
// from the plain object, which calls FEMAP for each value and must load the entity first.
#pragma once

#include "femap/Objects.h"
#include "femap/com/bulk/Capability.h"
#include "femap/com/bulk/EntityFetcher.h"
#include "femap/com/bulk/IDIndex.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace femap::com::bulk
{

/// One list tells which IDs exist. Members are fetched portion by portion, when an entity of the
/// portion is asked for. One entity of the first fetched portion is read one by one as well: when
/// its values differ, or when fetching fails, the capability is withdrawn.
class PrefetchingEntity : public Entity
{
public:
    PrefetchingEntity(std::unique_ptr<Entity> plain, std::unique_ptr<EntityFetcher> fetcher,
                      std::shared_ptr<Capability> capability);

    Value member(const std::string& name) override;
    Value member(const std::string& name, int index) override;
    ReturnCode Get(int id) override;
    int Type() override;
    void prefetch(const std::vector<int>& ids, const std::vector<MemberName>& members) override;

private:
    struct Slot
    {
        MemberName member;
        std::size_t column = 0;
    };
    using Portion = std::vector<Column>;  // empty: not fetched

    void forgetPlan();
    bool isWorthwhile(std::size_t entities, std::size_t members) const;
    void listExisting(const std::vector<int>& ids);
    ReturnCode getPlainly(int id);
    void loadPlain();
    const Slot* findSlot(const std::string& name, std::optional<int> index);
    std::optional<Value> fetched(const std::string& name, std::optional<int> index);
    bool fetch(std::size_t portion);
    bool agreesWithPlain(int id, const Portion& columns);
    void withdraw();

    std::unique_ptr<Entity> plain_;
    std::unique_ptr<EntityFetcher> fetcher_;
    std::shared_ptr<Capability> capability_;

    IDIndex planned_;
    IDIndex existing_;                       // of the planned ones
    std::optional<ReturnCode> missingCode_;  // what Get returns for the others
    std::vector<Slot> slots_;                // the members that are fetched
    std::size_t nextSlot_ = 0;               // the slot after the one found last
    std::vector<Portion> portions_;
    bool isVerified_ = false;

    std::optional<std::size_t> current_;  // index in existing_ of the entity that the caller loaded
    int loaded_ = 0;                      // its ID
    int held_ = 0;                        // the ID of the one that the plain object holds
};

}  // namespace femap::com::bulk
